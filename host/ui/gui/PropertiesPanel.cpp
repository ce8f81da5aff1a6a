#include "host/ui/gui/PropertiesPanel.h"

#include "host/interpreter/Printer.h"
#include "host/kernel/Document.h"
#include "host/kernel/drawing/EntityData.h"
#include "host/kernel/drawing/EntityName.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

using lisp::Value;

namespace {

constexpr std::size_t MostEntities = 100; // nobody reads more

QString lispText(Value value)
{
    return QString::fromStdU16String(lisp::printed(value));
}

// A pair's value, without the parentheses of a point's list.
QString valueText(Value value)
{
    const QString text = lispText(value);
    return value.isCons() ? text.mid(1, text.size() - 2) : text;
}

bool isName(Value value)
{
    return lisp::asNative<EntityName>(value) != nullptr;
}

} // namespace

PropertiesPanel::PropertiesPanel(Document &document)
    : m_document(document), m_groups(new QTreeWidget), m_copy(new QPushButton(tr("&Copy as LISP")))
{
    setObjectName(QStringLiteral("propertiesPanel"));
    m_groups->setHeaderLabels({tr("Group"), tr("Value")});
    m_groups->setAlternatingRowColors(true);
    m_groups->setFocusPolicy(Qt::ClickFocus);
    m_groups->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    m_copy->setObjectName(QStringLiteral("copyAsLisp"));
    connect(m_copy, &QPushButton::clicked, this, [this] { QApplication::clipboard()->setText(asLisp()); });
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(m_groups);
    layout->addWidget(m_copy, 0, Qt::AlignRight);
    refresh();
}

void PropertiesPanel::refresh()
{
    m_groups->clear();
    m_lists.clear();
    const DocumentSession &session = m_document.session();
    const commands::Selection &implied = session.impliedSelection();
    const drawing::Drawing &drawing = m_document.drawing();
    for (const drawing::RecordId entity : implied.empty() ? session.previousSelection() : implied) {
        if (static_cast<std::size_t>(m_lists.size()) == MostEntities)
            break;
        if (!drawing.database().record(entity).isGone())
            add(entityList(m_document.machine(), drawing, entity, entityName(m_document.machine(), drawing, entity)));
    }
    if (m_groups->topLevelItemCount() == 1)
        m_groups->expandAll();
    m_copy->setEnabled(!m_lists.isEmpty());
}

// Nothing of LISP runs meanwhile, so that the list stays.
void PropertiesPanel::add(Value list)
{
    auto *entity = new QTreeWidgetItem(m_groups);
    QStringList groups;
    for (Value rest = list; rest.isCons(); rest = rest.asCons()->cdr) {
        const Value group = rest.asCons()->car;
        const Value code = group.asCons()->car;
        const Value value = group.asCons()->cdr;
        if (lispText(code) == u"0")
            entity->setText(0, valueText(value).remove(u'"'));
        entity->addChild(new QTreeWidgetItem({lispText(code), valueText(value)}));
        if (!isName(value))
            groups.append(lispText(group));
    }
    entity->setFirstColumnSpanned(true);
    m_lists.append(QStringLiteral("'(%1)").arg(groups.join(u' ')));
}

QString PropertiesPanel::asLisp() const
{
    return m_lists.join(u'\n') + u'\n';
}
