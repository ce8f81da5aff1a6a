#include "host/ui/AnsweredDialog.h"

#include "host/kernel/HostServices.h"

namespace {

QString complaint(const std::optional<Answer> &answer, const QString &dialog)
{
    if (!answer)
        return QStringLiteral("no answer left for the dialog ") + dialog;
    return QStringLiteral("the answer of line %1, %2, does not suit the dialog %3")
        .arg(answer->line)
        .arg(answerLine(*answer), dialog);
}

// Texts typed into the dialog come first and belong to the same entry.
void answerOnce(AnsweredDialog &dialog, HostServices &services)
{
    TranscriptEvent event(u"dialog");
    dialog.describe(event);
    const QString name = dialog.name();
    std::optional<Answer> answer = services.answers.take();
    std::optional<QString> typed;
    while (answer && answer->kind == Answer::Kind::Text && dialog.suits(*answer)) {
        typed = answer->argument;
        dialog.perform(*answer);
        answer = services.answers.take();
    }
    if (typed)
        event.add(u"typed", *typed);
    services.transcript.write(event.add(u"answer", answer ? QJsonValue(answerLine(*answer)) : QJsonValue()));
    if (answer && dialog.suits(*answer)) {
        dialog.perform(*answer);
        return;
    }
    services.warn(complaint(answer, name));
    dialog.dismiss();
}

} // namespace

void answerDialog(AnsweredDialog &dialog, HostServices &services)
{
    while (dialog.isOpen())
        answerOnce(dialog, services);
}
