#include "host/commands/CommandLine.h"

#include "host/commands/Script.h"

namespace commands {

namespace {

constexpr std::u16string_view SelectName = u"SELECT";

bool isTransparent(const std::u16string &typed)
{
    return typed.starts_with(u'\'');
}

} // namespace

CommandLine::~CommandLine()
{
    while (!m_running.empty()) // the innermost first
        m_running.pop_back();
}

CommandLine::Result CommandLine::give(const std::vector<Input> &inputs)
{
    m_lastName.clear();
    if (inputs.size() > 1)
        endBefore(inputs.front(), Standing::FirstOfSeveral);
    for (const Input &input : inputs)
        if (const Result result = give(input); result != Result::Taken)
            return result;
    finishSelecting();
    showPrompt();
    return Result::Taken;
}

CommandLine::Result CommandLine::give(const Input &input)
{
    const Result result = giveOne(input);
    runScripts();
    return result;
}

// A command that goes on until Enter may give way to another one without that. Where the other's name is an option of
// it as well, as UNDO, it is the name only when more follows in the same call.
void CommandLine::endBefore(const Input &input, Standing standing)
{
    const auto *text = std::get_if<std::u16string>(&input);
    if (!isActive() || !text || isTransparent(*text) || !rowOf(*text))
        return;
    if (standing == Standing::FirstOfSeveral || !running().context.ask().waiting()->hasKeyword(*text))
        endRepeated();
}

void CommandLine::endRepeated()
{
    if (isActive() && running().context.ask().waiting()->otherCommand() == OtherCommand::EndsThis)
        offer(std::u16string());
}

CommandLine::Result CommandLine::giveOne(const Input &input)
{
    endBefore(input, Standing::Else);
    const auto *text = std::get_if<std::u16string>(&input);
    if (isActive() && text && *text == Pause)
        return askPerson();
    if (isActive() && !(text && isTransparent(*text))) {
        offer(input);
        return Result::Taken;
    }
    if (text && !text->empty() && *text != u" ")
        return start(*text, Source::Program);
    return Result::Taken; // Enter, or a value that nobody asked for
}

CommandLine::Result CommandLine::runTyped(const std::u16string &typed)
{
    m_lastName.clear();
    const Result started = start(typed, Source::Person);
    const Result result = started == Result::Taken ? askForRest() : started;
    runScripts();
    return result;
}

CommandLine::Result CommandLine::askForRest()
{
    return askWhileRunning(0);
}

CommandLine::Result CommandLine::askInside(const CommandRow &row)
{
    const std::size_t waiting = m_running.size();
    const std::u16string lastName = m_lastName;
    begin(row, std::u16string(row.name));
    const Result result = askWhileRunning(waiting);
    m_lastName = lastName; // Enter in a script repeats what was typed there
    if (isActive())
        running().promptIsShown = false; // the person has answered another one since
    return result;
}

CommandLine::Result CommandLine::askWhileRunning(std::size_t kept)
{
    Result result = Result::Taken;
    while (result == Result::Taken && m_running.size() > kept)
        result = askPerson(kept);
    return result;
}

// A script that begins another one ends there, and one that begins itself goes round; that has to end somewhere.
void CommandLine::runScripts()
{
    constexpr int MostScripts = 100;
    if (m_runsScript)
        return;
    m_runsScript = true;
    int count = 0;
    while (m_memory.script && ++count <= MostScripts) {
        Script script(*std::exchange(m_memory.script, std::nullopt));
        for (bool goesOn = true; goesOn && !m_memory.script;) {
            const bool takesBlanks =
                isActive() && running().context.ask().waiting()->blanks() == Blanks::BelongToAnswers;
            const std::optional<std::u16string> typed =
                script.next(takesBlanks ? Script::Form::Line : Script::Form::Word);
            goesOn = typed && takeTyped(*typed);
        }
    }
    m_runsScript = false;
    if (std::exchange(m_memory.script, std::nullopt))
        m_session.print(u"\nThe scripts begin each other without end.\n");
}

// As typed at the keyboard: Enter alone begins the last command again.
bool CommandLine::takeTyped(const std::u16string &typed)
{
    if (Script::isExpression(typed)) {
        std::optional<Input> answer;
        if (!m_session.evaluate(typed, answer))
            return false;
        if (answer && isActive())
            give(*answer);
    } else if (typed.empty() && !isActive()) {
        if (!m_lastName.empty())
            give(Input(m_lastName));
    } else if (give(Input(typed)) == Result::Cancelled) {
        return false;
    }
    return true;
}

const CommandRow *CommandLine::rowOf(const std::u16string &typed) const
{
    const CommandRow *row = findCommand(typed);
    return !row && m_session.variable(commandName(typed)) ? &variableCommand() : row;
}

CommandLine::Result CommandLine::start(const std::u16string &typed, Source source)
{
    const CommandRow *row = rowOf(typed);
    if (!row) {
        m_session.print(u"\nUnknown command \"" + commandName(typed) + u"\".\n");
        return Result::Unknown;
    }
    if (row->company == CommandRow::Company::Alone && isActive()) {
        m_session.print(u"\n** That command may not be invoked transparently **\n");
        return Result::Taken;
    }
    if (source == Source::Program)
        echo(u'\n' + typed);
    begin(*row, row->name.empty() ? commandName(typed) : std::u16string(row->name));
    return Result::Taken;
}

void CommandLine::begin(const CommandRow &row, std::u16string name)
{
    const bool isFirst = !isActive();
    if (row.undo == CommandRow::Undo::OneStep && isFirst)
        m_session.drawing().database().journal().nextStep();
    const Echo echoing = m_session.integer(u"CMDECHO") != 0 ? Echo::On : Echo::Off;
    m_running.push_back(std::make_unique<Running>(row, std::move(name), *this, echoing));
    running().followsSelect = m_lastName == SelectName;
    if (row.preselection == CommandRow::Preselection::TakenOrDropped && isFirst)
        running().context.preselect(m_session.takeImpliedSelection());
    proceed([this] { running().task.start(); });
}

// Goes on with the running command, and takes it from the list when that was its end.
template <class Step> void CommandLine::proceed(Step step)
{
    Running &current = running();
    current.promptIsShown = false;
    step();
    if (!current.task.isDone())
        return;
    const std::unique_ptr<Running> ended = std::move(m_running.back());
    m_running.pop_back();
    m_lastName = ended->context.name();
    m_session.showSelected({});
    try {
        ended->task.takeResult();
    } catch (const Cancelled &) {
        if (ended->context.echo() == Echo::On)
            m_session.print(u"\n*Cancel*");
    } catch (const CommandError &error) {
        m_session.print(u'\n' + error.message + u'\n');
    }
}

Request::Outcome CommandLine::offer(const Input &input, Source source)
{
    Request &request = *running().context.ask().waiting();
    if (!running().promptIsShown)
        echo(u'\n' + request.prompt());
    if (source == Source::Program)
        echo(shown(input));
    m_lastPrompt = request.prompt() + shown(input);
    running().promptIsShown = false;
    running().followsSelect = false;
    const Request::Outcome outcome = request.offer(input);
    if (outcome == Request::Outcome::Refused)
        m_session.print(u'\n' + request.complaint() + u'\n');
    else if (outcome == Request::Outcome::Answered)
        proceed([this] { running().context.ask().takeWaiting()->resume(); });
    return outcome;
}

CommandLine::Result CommandLine::askPerson(std::size_t kept)
{
    for (;;) {
        const Request &request = *running().context.ask().waiting();
        const std::optional<Input> reply =
            m_session.request(request.kind(), u'\n' + request.prompt(), request.base(), request.snap());
        if (!reply) {
            cancelAllBut(kept);
            return Result::Cancelled;
        }
        running().promptIsShown = true;
        if (offer(*reply, Source::Person) == Request::Outcome::Answered)
            return Result::Taken;
    }
}

void CommandLine::cancel()
{
    cancelAllBut(0);
}

void CommandLine::forgetDrawing()
{
    std::optional<std::u16string> script = std::move(m_memory.script);
    m_memory = Memory();
    m_memory.script = std::move(script);
}

void CommandLine::cancelAllBut(std::size_t kept)
{
    while (m_running.size() > kept) {
        running().context.ask().waiting()->cancel();
        proceed([this] { running().context.ask().takeWaiting()->resume(); });
    }
}

// SELECT leaves its objects selected. A command that comes right after it and is left at its first "Select objects"
// takes them; one that is given objects of its own does not, whatever PICKFIRST says.
void CommandLine::finishSelecting()
{
    if (!isActive() || !running().followsSelect || m_session.integer(u"PICKFIRST") == 0)
        return;
    if (running().context.ask().waiting()->kind() != InputKind::Objects)
        return;
    offer(m_session.previousSelection());
    offer(std::u16string());
}

void CommandLine::showPrompt()
{
    if (!isActive()) {
        if (!m_lastName.empty())
            echo(u"\n");
        return;
    }
    if (running().promptIsShown)
        return;
    m_lastPrompt = running().context.ask().waiting()->prompt();
    echo(u'\n' + m_lastPrompt);
    running().promptIsShown = true;
}

void CommandLine::echo(std::u16string_view text)
{
    if (m_session.integer(u"CMDECHO") != 0)
        m_session.print(text);
}

std::u16string CommandLine::names() const
{
    std::u16string names;
    for (const auto &running : m_running)
        names += (names.empty() ? u"" : u"'") + running->context.name();
    return names;
}

} // namespace commands
