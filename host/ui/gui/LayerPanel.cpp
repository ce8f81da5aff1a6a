#include "host/ui/gui/LayerPanel.h"

#include "host/drawing/LayerState.h"
#include "host/drawing/edit/GroupEditing.h"
#include "host/kernel/Document.h"
#include "host/palette/Palette.h"

#include <QHeaderView>
#include <QInputDialog>
#include <QPainter>

#include <algorithm>
#include <cstdlib>

namespace {

enum Code : int { FlagsCode = 70, ColorCode = 62, TrueColorCode = 420 }; // of the DXF reference, for LAYER

constexpr int SwatchSize = 14;

QIcon swatch(QRgb color)
{
    QPixmap picture(SwatchSize, SwatchSize);
    picture.fill(QColor::fromRgb(color));
    QPainter painter(&picture);
    painter.setPen(Qt::gray);
    painter.drawRect(0, 0, SwatchSize - 1, SwatchSize - 1);
    return picture;
}

QRgb paletteColor(std::int64_t index)
{
    const std::size_t known = index > 0 && index < std::int64_t{palette::Count} ? std::size_t(index) : 7;
    const palette::Color color = palette::colors[known];
    return qRgb(color.red, color.green, color.blue);
}

Qt::CheckState checkState(bool checked)
{
    return checked ? Qt::Checked : Qt::Unchecked;
}

// A name as a pattern that only it matches.
QString literally(const QString &name)
{
    QString pattern;
    for (const QChar character : name) {
        if (QStringView(u"#@.*?~[]-,`").contains(character))
            pattern += u'`';
        pattern += character;
    }
    return pattern;
}

QTreeWidgetItem *makeItem(const QString &name, const drawing::GroupList &groups)
{
    const std::int64_t color = drawing::integerOf(groups, ColorCode, 7); // negative: the layer is off
    auto *item = new QTreeWidgetItem({name});
    item->setCheckState(LayerPanel::On, checkState(color >= 0));
    item->setCheckState(LayerPanel::Frozen,
                        checkState((drawing::integerOf(groups, FlagsCode) & drawing::layerflag::Frozen) != 0));
    const bool isTrueColor = drawing::hasGroup(groups, TrueColorCode);
    const auto rgb = static_cast<QRgb>(drawing::integerOf(groups, TrueColorCode)) & 0xFFFFFF;
    item->setIcon(LayerPanel::Color, swatch(isTrueColor ? rgb : paletteColor(std::abs(color))));
    item->setText(LayerPanel::Color, isTrueColor
                                         ? QStringLiteral("%1,%2,%3").arg(qRed(rgb)).arg(qGreen(rgb)).arg(qBlue(rgb))
                                         : QString::number(std::abs(color)));
    return item;
}

} // namespace

LayerPanel::LayerPanel(Document &document) : m_document(document)
{
    setObjectName(QStringLiteral("layerPanel"));
    setHeaderLabels({tr("Layer"), tr("On"), tr("Frozen"), tr("Colour")});
    setRootIsDecorated(false);
    setAlternatingRowColors(true);
    setFocusPolicy(Qt::ClickFocus);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    header()->setSectionResizeMode(Name, QHeaderView::Stretch);
    connect(this, &QTreeWidget::itemChanged, this,
            [this](QTreeWidgetItem *item, int column) { change(*item, column); });
    connect(this, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem *item, int column) {
        if (column == Color)
            askColor(*item);
    });
    refresh();
}

void LayerPanel::refresh()
{
    const drawing::Drawing &drawing = m_document.drawing();
    const std::pair now{drawing.number(), m_document.drawing().database().journal().changeCount()};
    const QString current = QString::fromStdU16String(m_document.currentLayer());
    if (now == m_shown && current == m_current)
        return;
    m_shown = now;
    m_current = current;
    const QSignalBlocker quiet(this); // the boxes are filled by nobody's wish
    clear();
    for (const drawing::RecordId layer : drawing.tables().entries(drawing::known::Layer)) {
        const QString name = QString::fromStdU16String(drawing.database().name(layer));
        QTreeWidgetItem *item = makeItem(name, drawing.database().groups(layer));
        QFont font = item->font(Name);
        font.setBold(name.compare(current, Qt::CaseInsensitive) == 0);
        item->setFont(Name, font);
        addTopLevelItem(item);
    }
    sortItems(Name, Qt::AscendingOrder);
}

void LayerPanel::change(const QTreeWidgetItem &item, int column)
{
    const bool checked = item.checkState(column) == Qt::Checked;
    const QString option = column == On ? (checked ? QStringLiteral("_On") : QStringLiteral("_Off"))
                                        : (checked ? QStringLiteral("_Freeze") : QStringLiteral("_Thaw"));
    QStringList answers = {option, literally(item.text(Name))};
    // Whether the current layer shall really be off is asked; it cannot be frozen at all.
    if (column == On && !checked && item.text(Name).compare(m_current, Qt::CaseInsensitive) == 0)
        answers.append(QStringLiteral("_Yes"));
    send(answers);
}

void LayerPanel::askColor(const QTreeWidgetItem &item)
{
    bool isChosen = false;
    const int color =
        QInputDialog::getInt(this, tr("Colour of a layer"), tr("Colour of %1:").arg(item.text(Name)),
                             std::max(item.text(Color).toInt(), 1), 1, int(palette::Count) - 1, 1, &isChosen);
    if (isChosen)
        send({QStringLiteral("_Color"), QString::number(color), literally(item.text(Name))});
}

void LayerPanel::send(const QStringList &answers)
{
    m_shown = {}; // also when nothing comes of it the panel shows what is so
    Q_EMIT commandWanted(QStringList(QStringLiteral("_.-LAYER")) + answers + QStringList(QString()));
}
