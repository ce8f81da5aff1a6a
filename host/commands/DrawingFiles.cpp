#include "host/commands/DrawingFiles.h"

#include "host/drawing/DrawingWriter.h"

#include <QFileInfo>

namespace commands {

QString dxfName(const std::u16string &typed)
{
    const QString name = QString::fromStdU16String(typed);
    const QString suffix = QFileInfo(name).suffix().toLower();
    if (suffix == QStringLiteral("dxf"))
        return name;
    const bool isDrawing = suffix == QStringLiteral("dwg") || suffix == QStringLiteral("dwt");
    return (isDrawing ? name.chopped(suffix.size() + 1) : name) + QStringLiteral(".dxf");
}

QString oddityNote(const drawing::Database &database)
{
    const drawing::Oddities &oddities = database.oddities();
    if (oddities.count == 0)
        return {};
    const QString places =
        oddities.count == 1 ? QStringLiteral("1 place") : QStringLiteral("%1 places, first").arg(oddities.count);
    return QStringLiteral("not understood and kept as it is in %1: %2")
        .arg(places, QString::fromStdString(oddities.first));
}

Command confirmReplacing(Context &context, const QString path)
{
    if (!QFileInfo::exists(path))
        co_return;
    const auto replaces = co_await context.ask().keyword(
        {u"A drawing with this name already exists. Do you want to replace it? [Yes/No] <N>: ", u"Yes No"});
    if (!replaces.is(u"Yes"))
        throw CommandError{u"The drawing was not saved."};
}

void writeDrawing(Context &context, const drawing::Database &database, const QString &path)
{
    const bool keepsBackup = context.session().integer(u"ISAVEBAK") != 0;
    QString failure;
    if (!drawing::saveDrawing(database, path, keepsBackup ? drawing::Backup::Keep : drawing::Backup::None, failure))
        throw CommandError{failure.toStdU16String()};
    context.say(u"Saved as " + path.toStdU16String());
}

} // namespace commands
