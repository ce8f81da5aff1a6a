#include "host/render/ImageFiles.h"

#include <QFileInfo>

namespace render {

QImage imageFile(const drawing::Drawing &drawing, drawing::RecordId definition)
{
    if (definition == drawing::NoRecord)
        return {};
    const auto group = drawing.database().firstGroup(definition, drawing::groupcode::PrimaryText);
    const auto *name = group ? std::get_if<std::u16string>(&group->value) : nullptr;
    if (!name || name->empty())
        return {};
    const QString path = QString::fromStdU16String(*name).replace(QLatin1Char('\\'), QLatin1Char('/'));
    const QString folder = QFileInfo(drawing.path()).path();
    const QString fileName = path.section(QLatin1Char('/'), -1);
    for (const QString &candidate : {path, folder + QLatin1Char('/') + path, folder + QLatin1Char('/') + fileName})
        if (QFileInfo(candidate).isFile())
            return QImage(candidate);
    return {};
}

} // namespace render
