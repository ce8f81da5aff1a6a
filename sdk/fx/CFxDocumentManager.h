#pragma once

#include <cstdint>

class CFxDocument;
class CFxDocumentManagerReactor;

// The open documents of the host, which owns both manager and documents.
class CFxDocumentManager
{
public:
    // The manager does not own its reactors: each must be removed before it goes away.
    virtual void addReactor(CFxDocumentManagerReactor *reactor) = 0;
    virtual void removeReactor(CFxDocumentManagerReactor *reactor) = 0;

    virtual std::uint16_t documentCount() const = 0;
    virtual CFxDocument *documentAt(std::uint16_t index) const = 0; // index below documentCount()

protected:
    ~CFxDocumentManager() = default;
};
