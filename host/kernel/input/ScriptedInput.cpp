#include "host/kernel/input/ScriptedInput.h"

#include "host/kernel/HostServices.h"

namespace {

QString kindName(InputRequest::Kind kind)
{
    using Kind = InputRequest::Kind;
    switch (kind) {
    case Kind::Point:
        return QStringLiteral("point");
    case Kind::Corner:
        return QStringLiteral("corner");
    case Kind::Distance:
        return QStringLiteral("distance");
    case Kind::Angle:
        return QStringLiteral("angle");
    case Kind::Integer:
        return QStringLiteral("integer");
    case Kind::Real:
        return QStringLiteral("real");
    case Kind::String:
        return QStringLiteral("string");
    case Kind::Keyword:
        return QStringLiteral("keyword");
    case Kind::Entity:
        return QStringLiteral("entity");
    case Kind::Selection:
        return QStringLiteral("selection");
    case Kind::Drag:
        return QStringLiteral("drag");
    case Kind::Event:
        return QStringLiteral("event");
    }
    return {};
}

bool fits(const Answer &answer, InputRequest::Kind kind)
{
    return answer.kind == Answer::Kind::Typed || answer.kind == Answer::Kind::Escape ||
           (answer.kind == Answer::Kind::Move &&
            (kind == InputRequest::Kind::Drag || kind == InputRequest::Kind::Event));
}

InputReply replyOf(const Answer &answer)
{
    if (answer.kind == Answer::Kind::Escape)
        return {};
    const auto kind = answer.kind == Answer::Kind::Move ? InputReply::Kind::Moved : InputReply::Kind::Text;
    return {kind, answer.argument.toStdU16String()};
}

} // namespace

InputReply ScriptedInput::request(const InputRequest &request)
{
    const QString prompt = QString::fromStdU16String(request.prompt);
    m_services.print(request.prompt);
    const std::optional<Answer> answer = m_services.answers.take();
    m_services.transcript.write(TranscriptEvent(u"request")
                                    .add(u"kind", kindName(request.kind))
                                    .add(u"prompt", prompt)
                                    .add(u"answer", answer ? QJsonValue(answerLine(*answer)) : QJsonValue()));
    const QString asked = QStringLiteral("%1 request \"%2\"").arg(kindName(request.kind), prompt.trimmed());
    if (!answer) {
        m_services.warn(QStringLiteral("no answer left for the ") + asked);
        return {};
    }
    if (!fits(*answer, request.kind)) {
        m_services.warn(QStringLiteral("the answer of line %1, %2, does not fit the %3")
                            .arg(answer->line)
                            .arg(answerLine(*answer), asked));
        return {};
    }
    if (answer->kind == Answer::Kind::Typed && request.kind != InputRequest::Kind::Event)
        m_services.print(answer->argument.toStdU16String() + u'\n');
    return replyOf(*answer);
}
