#pragma once

#include "host/commands/CommandLine.h"
#include "host/interpreter/Machine.h"
#include "host/kernel/SubstituteLispHost.h"
#include "host/kernel/commands/DocumentSession.h"
#include "host/kernel/drawing/OpenDrawing.h"
#include "host/kernel/drawing/SelectionSet.h"
#include "host/kernel/input/DocumentInput.h"
#include "host/kernel/input/TypedLines.h"
#include "host/kernel/variables/SystemVariables.h"
#include "host/kernel/variables/UserSystems.h"
#include "sdk/fx/CFxDocument.h"

// An open document with its own LISP namespace.
class Document final : public CFxDocument, public lisp::MachineOwner
{
public:
    explicit Document(HostServices &services);
    ~Document();

    // The document whose machine this is. Only for machines of documents, as those are that have the host's built-ins.
    static Document &of(lisp::Machine &machine) { return *static_cast<Document *>(machine.owner()); }

    LispHost *lispHost() override { return &m_lispHost; }
    OdDbDatabase *database() override { return &m_openDrawing->database; }
    CFxUserInput *userInput() override { return &m_userInput; }
    QWidget *window() override;
    lisp::Machine &machine() { return m_machine; }
    void programFailed() override; // ends the transactions that the program has left open
    HostServices &services() { return m_services; }
    SystemVariables &variables() { return m_variables; }
    Prompter &prompter() { return m_lispHost.prompter(); }

    // Empty at first. Entity names and selection sets of a drawing that is replaced lead nowhere.
    drawing::Drawing &drawing() { return m_openDrawing->drawing; }
    OpenDrawing &openDrawing() { return *m_openDrawing; }
    // Throws drawing::ReadError, also when the machine is interrupted meanwhile, and keeps the drawing that it has.
    void open(const QString &path);
    void readVariables(); // those that the drawing keeps, after it has changed otherwise than by setvar
    std::u16string currentLayer() const;
    bool isPaperSpaceCurrent() const;
    std::u16string currentLayout() const;      // "Model", or its name
    bool showLayout(std::u16string_view name); // false: there is no such layout
    // While a layout is shown (TILEMODE 0): the viewport that the model is worked on through. NoRecord: its paper is.
    drawing::RecordId currentViewport() const;
    bool workThroughViewport(); // the one that was current last, else the first; false: there is none
    void workThroughViewport(drawing::RecordId viewport);
    void workOnPaper() { m_isInViewport = false; }
    // The place of an entity that a point near it means, in the user's coordinates; perpendiculars begin at `from`.
    std::optional<LispPoint> snapped(const LispPoint &near, snap::Modes modes, const LispPoint &from);
    SelectionSets &selectionSets() { return m_selectionSets; }
    DocumentSession &session() { return m_session; }
    commands::CommandLine &commandLine() { return m_commandLine; }

private:
    HostServices &m_services;
    std::unique_ptr<OpenDrawing> m_openDrawing;
    SelectionSets m_selectionSets; // outlives the machine, whose values are the sets
    lisp::Machine m_machine;
    SystemVariables m_variables;
    UserSystems m_userSystems{*this};
    SubstituteLispHost m_lispHost;
    DocumentInput m_userInput{m_lispHost.prompter()};
    TypedLines m_typedLines{m_lispHost.prompter()};
    DocumentSession m_session{*this};
    commands::CommandLine m_commandLine{m_session};
    drawing::RecordId m_viewport = drawing::NoRecord; // that was current last
    bool m_isInViewport = false;
};
