#pragma once

#include "host/kernel/variables/SystemVariables.h"

#include <array>

class Document;

// The user's coordinate systems of a document: the model has one and the paper of layouts another. UCSORG, UCSXDIR,
// UCSYDIR and UCSNAME are those of the space that is current.
class UserSystems
{
public:
    explicit UserSystems(Document &document) : m_document(document) {}
    void compute(SystemVariables &variables);
    void forgetDrawing(); // both are the world's, as in a new drawing
    void readDrawing();   // as its header has them; what it does not have stays

private:
    static constexpr std::size_t VariableCount = 4;
    using System = std::array<VariableValue, VariableCount>; // values of the variables, in their order

    System &current();

    Document &m_document;
    System m_model, m_paper;
};
