#include "app/Session.h"

#include "app/Interrupts.h"
#include "app/Modules.h"
#include "app/Plotter.h"
#include "app/sandbox/TimeLimit.h"
#include "host/commands/DrawingFiles.h"
#include "host/drawing/DrawingWriter.h"
#include "host/interpreter/Printer.h"
#include "host/interpreter/files/SourceFile.h"
#include "host/render/PlotFile.h"

#include <QDir>
#include <QFileInfo>

using lisp::LispError;
using lisp::Value;

Session::Session(const Options &options)
    : m_drawingFile(options.drawingFile), m_saveFile(options.saveFile), m_plotFile(options.plotFile),
      m_plotLayout(options.plotLayout)
{
    connectServices(options);
    loadModules(m_host, options);
}

void Session::begin()
{
    openDocument();
    warnOfOddities();
}

void Session::connectServices(const Options &options)
{
    HostServices &services = m_host.services();
    services.print = [this](std::u16string_view text) { m_output->write(text); };
    services.plotter = plotterWith(services);
    services.warn = [this](const QString &text) {
        m_console.writeError((QStringLiteral("lisphost: ") + text + u'\n').toStdU16String());
    };
    if (!options.answersFile.isEmpty())
        m_answers = AnswersFile::read(options.answersFile);
    if (!options.transcriptFile.isEmpty())
        services.transcript = Transcript(options.transcriptFile);
}

void Session::openDocument()
{
    m_host.services().answers = m_answers;
    m_document = &m_host.documents().open();
    machine().setConsole(m_output);
    machine().heap().setLimit(m_memoryLimit);
    if (m_drawingFile.isEmpty())
        return;
    m_document->open(m_drawingFile);
    addSearchFolderOf(m_drawingFile);
}

void Session::warnOfOddities()
{
    const QString note = commands::oddityNote(m_document->drawing().database());
    if (!note.isEmpty())
        warn(m_drawingFile + QStringLiteral(": ") + note);
}

void Session::startOver()
{
    m_host.documents().close(*m_document);
    m_userInterface.closeWindows();
    openDocument();
}

void Session::setOutput(lisp::Console &output)
{
    m_output = &output;
    machine().setConsole(m_output);
}

void Session::addSearchFolderOf(const QString &file)
{
    machine().searchFolders().push_back(QFileInfo(file).absolutePath().toStdU16String());
}

int Session::finish(int status)
{
    QString failure;
    if (status != ExitFine || (save(failure) && plot(failure)))
        return status;
    warn(failure);
    return ExitFile;
}

bool Session::save(QString &failure) const
{
    const bool keepsBackup = m_document->session().integer(u"ISAVEBAK") != 0;
    return m_saveFile.isEmpty() ||
           drawing::saveDrawing(m_document->drawing().database(), m_saveFile,
                                keepsBackup ? drawing::Backup::Keep : drawing::Backup::None, failure);
}

bool Session::plot(QString &failure)
{
    if (m_plotFile.isEmpty())
        return true;
    const drawing::Drawing &drawing = m_document->drawing();
    const std::optional<render::Sheet> sheet = m_plotLayout.isEmpty()
                                                   ? render::currentSheet(drawing)
                                                   : render::namedSheet(drawing, m_plotLayout.toStdU16String());
    if (sheet) {
        if (const QString note = cutNote(*sheet); !note.isEmpty())
            warn(note);
        return render::writePlot(*sheet, *render::plotFormat(m_plotFile), m_plotFile, failure);
    }
    failure = QStringLiteral("the drawing has no layout %1").arg(m_plotLayout);
    return false;
}

void Session::limit(const SandboxOptions &limits)
{
    constexpr std::size_t Megabyte = 1024 * 1024;
    m_host.services().machineLimits.frames = static_cast<std::size_t>(limits.depth);
    if (limits.megabytes > 0)
        m_memoryLimit = static_cast<std::size_t>(limits.megabytes) * Megabyte;
    if (limits.seconds > 0)
        interruptAfter(limits.seconds);
}

int Session::runFiles(const std::vector<QString> &files, const std::vector<QString> &arguments)
{
    lisp::ListBuilder list(machine().heap());
    for (const QString &argument : arguments)
        list.add(machine().string(argument.toStdU16String()));
    machine().intern(u"*ARGUMENTS*")->value = list.list();
    for (const QString &file : files)
        if (const int status = runFile(file); status != ExitFine)
            return status;
    return ExitFine;
}

int Session::runFile(const QString &path)
{
    QString failure;
    const std::optional<std::u16string> source = lisp::readSourceFile(path, failure);
    if (!source) {
        warn(failure);
        return ExitFile;
    }
    addSearchFolderOf(path);
    const InterruptScope interrupts(machine());
    try {
        machine().load(*source, path.toStdU16String());
        return ExitFine;
    } catch (const LispError &error) {
        return statusOf(error);
    }
}

int Session::evaluate(const std::vector<QString> &expressions)
{
    const InterruptScope interrupts(machine());
    try {
        for (const QString &expression : expressions)
            machine().load(expression.toStdU16String(), u"", [this](Value value) { printValue(value); });
        return ExitFine;
    } catch (const LispError &error) {
        return statusOf(error);
    }
}

void Session::printValue(Value value)
{
    m_console.startFreshLine();
    std::u16string text = lisp::printed(value);
    if (!text.empty()) // the null symbol shows nothing
        m_console.write(text += u'\n');
}

// exit and quit end the program in good order.
int Session::statusOf(const LispError &error)
{
    if (error.kind == LispError::Kind::Exit)
        return ExitFine;
    report(error);
    return ExitFailed;
}

void Session::report(const LispError &error)
{
    m_console.startFreshLine();
    std::u16string text = u"error: " + error.message + u'\n' + lisp::traceText(error.trace);
    if (!error.handlerFailure.empty())
        text += u"error in *error*: " + error.handlerFailure + u'\n';
    m_console.writeError(text);
}
