#pragma once

#include "sdk/fx/ui/CFxDialog.h"
#include "sdk/fx/ui/CFxWebView.h"

#include "ui_Dlg_QT_ShowHtmlModalWindow.h"

#include <memory>

// Shows a page in a web view of the host's. Without one, or when it has no widget, the window is empty.
class Dlg_QT_ShowHtmlModalWindow : public CFxDialog, public Ui::Dlg_QT_ShowHtmlModalWindow
{
    Q_OBJECT

public:
    explicit Dlg_QT_ShowHtmlModalWindow(QWidget *parent);
    ~Dlg_QT_ShowHtmlModalWindow() override;

    void setPage(const QString &page) { m_page = page; } // shown whenever the window is

protected:
    void showEvent(QShowEvent *event) override;

private:
    void placeView(QWidget *widget, QWidget *parent);

    QString m_page;
    std::unique_ptr<CFxWebView> m_view; // null when the host makes none
};
