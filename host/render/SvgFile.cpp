#include "host/render/SvgFile.h"

#include <QBuffer>
#include <QXmlStreamWriter>

namespace render {

namespace {

constexpr double ThinnestLine = 0.05;

QString number(double value)
{
    return QString::number(std::round(value * 1000) / 1000, 'g', 8);
}

QString colorName(std::uint32_t rgb)
{
    return QStringLiteral("#%1").arg(rgb & 0xffffff, 6, 16, QLatin1Char('0'));
}

QLatin1String name(const char *text)
{
    return QLatin1String(text);
}

class SvgWriter
{
public:
    SvgWriter(const Sheet &sheet, QByteArray &content) : m_sheet(sheet), m_xml(&content) {}

    void write()
    {
        const QString width = number(m_sheet.size.width()), height = number(m_sheet.size.height());
        m_xml.writeStartDocument();
        m_xml.writeDefaultNamespace(name("http://www.w3.org/2000/svg"));
        m_xml.writeStartElement(name("svg"));
        attribute("width", width + name("mm"));
        attribute("height", height + name("mm"));
        attribute("viewBox", name("0 0 ") + width + QLatin1Char(' ') + height);
        m_xml.writeEmptyElement(name("rect"));
        attribute("width", width);
        attribute("height", height);
        attribute("fill", colorName(m_sheet.background));
        for (const Sheet::Part &part : m_sheet.parts)
            writePart(part);
        m_xml.writeEndDocument();
    }

private:
    void attribute(const char *key, const QString &value) { m_xml.writeAttribute(name(key), value); }
    QString place(const QPointF &point) const
    {
        return number(point.x()) + QLatin1Char(' ') + number(m_sheet.size.height() - point.y());
    }
    QString nextId() { return QStringLiteral("i%1").arg(++m_ids); }

    void writePart(const Sheet::Part &part)
    {
        QString outline;
        for (const QPointF &point : part.space.outline)
            outline += name(outline.isEmpty() ? "M" : "L") + place(point);
        const QString clip = writeClip(outline + QLatin1Char('Z'));
        m_xml.writeStartElement(name("g"));
        attribute("clip-path", QStringLiteral("url(#%1)").arg(clip));
        attribute("stroke-linecap", name("round"));
        attribute("stroke-linejoin", name("round"));
        for (const DisplayItem &item : part.list.items())
            writeItem(part.list, item);
        m_xml.writeEndElement();
    }

    QString writeClip(const QString &path)
    {
        const QString id = nextId();
        m_xml.writeStartElement(name("clipPath"));
        attribute("id", id);
        m_xml.writeEmptyElement(name("path"));
        attribute("d", path);
        m_xml.writeEndElement();
        return id;
    }

    QString pathOf(const DisplayList &list, const DisplayItem &item) const
    {
        QString path;
        bool begins = true;
        for (const DisplayPoint &point : list.points(item)) {
            const bool isEnd = DisplayList::isLoopEnd(point);
            const QPointF onPage = QPointF(double{point.x}, double{point.y}) + list.origin();
            path += isEnd ? QStringLiteral("Z") : name(begins ? "M" : "L") + place(onPage);
            begins = isEnd;
        }
        return path;
    }

    void writeItem(const DisplayList &list, const DisplayItem &item)
    {
        switch (item.kind) {
        case DisplayItem::Kind::Line:
            m_xml.writeEmptyElement(name("path"));
            attribute("d", pathOf(list, item));
            attribute("fill", name("none"));
            attribute("stroke", colorName(item.rgb));
            attribute("stroke-width", number(std::max(double{item.weight}, ThinnestLine)));
            break;
        case DisplayItem::Kind::Area:
        case DisplayItem::Kind::Letter:
            writeArea(list, item, colorName(item.rgb));
            break;
        case DisplayItem::Kind::Gradient:
            writeArea(list, item, QStringLiteral("url(#%1)").arg(writeGradient(list.gradient(item))));
            break;
        case DisplayItem::Kind::Picture:
            writePicture(list.picture(item), writeClip(pathOf(list, item)));
            break;
        }
    }

    void writeArea(const DisplayList &list, const DisplayItem &item, const QString &fill)
    {
        m_xml.writeEmptyElement(name("path"));
        attribute("d", pathOf(list, item));
        attribute("fill", fill);
        if (item.kind != DisplayItem::Kind::Letter)
            attribute("fill-rule", name("evenodd"));
    }

    QString writeGradient(const Gradient &gradient)
    {
        const QString id = nextId();
        m_xml.writeStartElement(name("linearGradient"));
        attribute("id", id);
        attribute("gradientUnits", name("userSpaceOnUse"));
        attribute("x1", number(gradient.from.x()));
        attribute("y1", number(m_sheet.size.height() - gradient.from.y()));
        attribute("x2", number(gradient.to.x()));
        attribute("y2", number(m_sheet.size.height() - gradient.to.y()));
        writeStop("0", gradient.first);
        writeStop(gradient.isMirrored ? "0.5" : "1", gradient.last);
        if (gradient.isMirrored)
            writeStop("1", gradient.first);
        m_xml.writeEndElement();
        return id;
    }

    void writeStop(const char *offset, std::uint32_t rgb)
    {
        m_xml.writeEmptyElement(name("stop"));
        attribute("offset", name(offset));
        attribute("stop-color", colorName(rgb));
    }

    void writePicture(const Picture &picture, const QString &clip)
    {
        QByteArray png;
        QBuffer buffer(&png);
        picture.image.save(&buffer, "PNG");
        const QTransform down(1, 0, 0, -1, 0, m_sheet.size.height());
        const QTransform t = picture.toPage * down;
        m_xml.writeStartElement(name("g"));
        attribute("clip-path", QStringLiteral("url(#%1)").arg(clip));
        m_xml.writeEmptyElement(name("image"));
        attribute("width", number(picture.image.width()));
        attribute("height", number(picture.image.height()));
        QStringList matrix;
        for (const double value : {t.m11(), t.m12(), t.m21(), t.m22(), t.dx(), t.dy()})
            matrix << QString::number(value, 'g', 12);
        attribute("transform", QStringLiteral("matrix(%1)").arg(matrix.join(QLatin1Char(' '))));
        attribute("href", name("data:image/png;base64,") + QString::fromLatin1(png.toBase64()));
        m_xml.writeEndElement();
    }

    const Sheet &m_sheet;
    QXmlStreamWriter m_xml;
    int m_ids = 0;
};

} // namespace

QByteArray svgOf(const Sheet &sheet)
{
    QByteArray content;
    SvgWriter(sheet, content).write();
    return content;
}

} // namespace render
