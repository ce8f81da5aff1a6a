#include "host/kernel/Document.h"

#include "host/kernel/HostServices.h"
#include "host/kernel/builtins/HostBuiltins.h"
#include "host/kernel/variables/HostVariables.h"

Document::Document(HostServices &services)
    : m_services(services), m_drawing(std::make_unique<drawing::Drawing>()),
      m_database(std::make_unique<DrawingDatabase>(*m_drawing)), m_machine(services.machineLimits),
      m_lispHost(m_machine, services, m_variables)
{
    bindUnits(m_variables, m_machine.unitVariables());
    bindInput(m_variables, prompter());
    computeEnvironment(m_variables);
    computeCommandLine(m_variables, *this);
    m_machine.setOwner(this);
    m_machine.setLineInput(&m_typedLines);
    defineHostBuiltins(m_machine);
}

Document::~Document() = default;

void Document::openDrawing(const QString &path)
{
    auto opened = std::make_unique<drawing::Drawing>(path);
    m_database = std::make_unique<DrawingDatabase>(*opened);
    m_drawing = std::move(opened);
}

QWidget *Document::window()
{
    return m_services.userInterface->documentWindow();
}
