#include "host/ui/gui/ProgressPanel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QToolButton>

ProgressPanel::ProgressPanel() : m_label(new QLabel), m_bar(new QProgressBar), m_cancel(new QToolButton)
{
    m_label->setObjectName(QStringLiteral("progressLabel"));
    m_label->setTextFormat(Qt::PlainText);
    m_bar->setObjectName(QStringLiteral("progressBar"));
    m_bar->setFixedWidth(200);
    m_bar->setTextVisible(false);
    m_cancel->setObjectName(QStringLiteral("progressCancel"));
    m_cancel->setText(tr("Cancel"));
    connect(m_cancel, &QToolButton::clicked, this, &ProgressPanel::cancelled);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_label);
    layout->addWidget(m_bar);
    layout->addWidget(m_cancel);
    hide();
}

void ProgressPanel::showProgress(const Progress &progress)
{
    m_label->setText(progress.label);
    m_bar->setRange(0, progress.maximum);
    m_bar->setValue(progress.position);
    show();
}
