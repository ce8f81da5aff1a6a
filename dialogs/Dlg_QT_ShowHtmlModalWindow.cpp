#include "dialogs/Dlg_QT_ShowHtmlModalWindow.h"

#include "dialogs/WindowFlags.h"
#include "sdk/fx/ui/CFxWebWidgetManager.h"

Dlg_QT_ShowHtmlModalWindow::Dlg_QT_ShowHtmlModalWindow(QWidget *parent) : CFxDialog(parent, true, dialogFlags)
{
    setupUi(this);
    CFxWebView_private::setProcessName(QStringLiteral("webView"));
    m_view.reset(CFxWebWidgetManager::GetManager()->CreateView());
    if (QWidget *widget = m_view ? m_view->widget() : nullptr)
        placeView(widget, parent);
    setAttribute(Qt::WA_QuitOnClose, false); // closing a dialog never ends the host
    connect(closeButton, &QPushButton::clicked, this, &QDialog::accept);
}

Dlg_QT_ShowHtmlModalWindow::~Dlg_QT_ShowHtmlModalWindow() = default;

// The view takes the cell of the placeholder, which stays beneath it.
void Dlg_QT_ShowHtmlModalWindow::placeView(QWidget *widget, QWidget *parent)
{
    widget->setParent(parent);
    m_view->loadUrl(QStringLiteral("about:blank"));
    gridLayout->addWidget(widget, 0, 0, 1, 1);
}

void Dlg_QT_ShowHtmlModalWindow::showEvent(QShowEvent *)
{
    if (!m_view)
        return;
    m_view->openPage(m_page);
    if (QWidget *widget = m_view->widget())
        widget->show();
}
