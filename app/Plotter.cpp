#include "app/Plotter.h"

#include "host/render/PageSetup.h"
#include "host/render/PlotFile.h"

namespace {

render::PageSetup pageSetup(const commands::PlotJob::Page &page)
{
    using Area = commands::PlotJob::Area;
    render::PageSetup setup;
    setup.paper = {page.width, page.height};
    setup.offset = {page.offsetX, page.offsetY};
    setup.area = page.area == Area::Window    ? render::PageSetup::Area::Window
                 : page.area == Area::Extents ? render::PageSetup::Area::Extents
                                              : render::PageSetup::Area::Layout;
    setup.window = QRectF(QPointF(page.lower.x, page.lower.y), QPointF(page.upper.x, page.upper.y));
    setup.scale = page.scale;
    setup.isCentred = page.offset == commands::PlotJob::Offset::Centred;
    return setup;
}

bool plotToFile(const drawing::Drawing &drawing, const commands::PlotJob &job, const HostServices &services,
                std::u16string &failure)
{
    const std::optional<render::Sheet> sheet = job.page ? render::namedSheet(drawing, job.layout, pageSetup(*job.page))
                                                        : render::namedSheet(drawing, job.layout);
    const QString path = QString::fromStdU16String(job.path);
    const std::optional<render::PlotFormat> format = render::plotFormat(path);
    if (!sheet || !format) {
        failure = u"This cannot be plotted.";
        return false;
    }
    if (const QString note = cutNote(*sheet); !note.isEmpty())
        services.warn(note);
    QString reason;
    if (render::writePlot(*sheet, *format, path, reason))
        return true;
    failure = reason.toStdU16String();
    return false;
}

} // namespace

HostServices::Plotter plotterWith(HostServices &services)
{
    return [&services](const drawing::Drawing &drawing, const commands::PlotJob &job, std::u16string &failure) {
        return plotToFile(drawing, job, services, failure);
    };
}

QString cutNote(const render::Sheet &sheet)
{
    if (sheet.cutEntities == 0)
        return {};
    return QStringLiteral("the plot leaves out parts of %1 object(s): blocks in blocks show too many objects")
        .arg(sheet.cutEntities);
}
