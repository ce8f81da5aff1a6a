#include "dialogs/Dlg_QT_ShowHtmlModalWindow.h"
#include "host/sdk/ui/HostSdkUi.h"
#include "tests/dialogs/FormChecks.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

enum class ViewKind { Complete, WithoutWidget };

ViewKind viewKind = ViewKind::Complete;
std::vector<std::string> calls; // of all views, in order

class RecordingView final : public CFxWebView
{
public:
    RecordingView() : m_widget(viewKind == ViewKind::Complete ? new QWidget : nullptr) {}
    ~RecordingView() override
    {
        calls.push_back("delete");
        delete m_widget;
    }

    QWidget *widget() override { return m_widget; }
    void openPage(const QString &page) override { calls.push_back("openPage " + page.toStdString()); }
    void loadUrl(const QString &url) override { calls.push_back("loadUrl " + url.toStdString()); }

private:
    QPointer<QWidget> m_widget;
};

CFxWebView *makeView()
{
    calls.push_back("make for " + HostSdk::webViewProcessName().toStdString());
    return new RecordingView;
}

using Calls = std::vector<std::string>;

// That the item stands in this row of the first column and covers no other cell.
void expectCell(const QGridLayout &grid, int item, int expectedRow)
{
    int row = -1, column = -1, rows = 0, columns = 0;
    grid.getItemPosition(item, &row, &column, &rows, &columns);
    EXPECT_EQ(row, expectedRow);
    EXPECT_EQ(column, 0);
    EXPECT_EQ(rows, 1);
    EXPECT_EQ(columns, 1);
}

class ShowHtmlModalWindow : public testing::Test
{
protected:
    ShowHtmlModalWindow()
    {
        calls.clear();
        viewKind = ViewKind::Complete;
        HostSdk::installWebViewMaker(makeView);
    }
    ~ShowHtmlModalWindow() override { HostSdk::installWebViewMaker(nullptr); }
};

} // namespace

TEST_F(ShowHtmlModalWindow, HasTheValuesOfItsForm)
{
    const Dlg_QT_ShowHtmlModalWindow dialog(nullptr);
    EXPECT_EQ(dialog.objectName(), u"Dlg_QT_ShowHtmlModalWindow"_qs);
    EXPECT_EQ(dialog.windowTitle(), u"Show HTML Modal Window"_qs);
    EXPECT_EQ(dialog.windowModality(), Qt::ApplicationModal);
    EXPECT_TRUE(dialog.isModal());
    EXPECT_EQ(dialog.size(), QSize(640, 480));
    EXPECT_EQ(dialog.minimumSize(), QSize(640, 480));
    EXPECT_FALSE(dialog.autoFillBackground());
    expectPolicy(dialog, QSizePolicy::Preferred, QSizePolicy::Preferred);
    expectDialogFlags(dialog);
    expectDoesNotQuit(dialog);
    EXPECT_STREQ(dialog.metaObject()->className(), "Dlg_QT_ShowHtmlModalWindow");
    EXPECT_STREQ(dialog.metaObject()->superClass()->className(), "CFxDialog");
}

TEST_F(ShowHtmlModalWindow, HasAPlaceholderAboveTheCloseButton)
{
    HostSdk::installWebViewMaker(nullptr);
    const Dlg_QT_ShowHtmlModalWindow dialog(nullptr);
    const QGridLayout &grid = *dialog.gridLayout;
    EXPECT_EQ(dialog.layout(), &grid);
    EXPECT_EQ(grid.horizontalSpacing(), 6);
    EXPECT_EQ(grid.verticalSpacing(), 6);
    EXPECT_EQ(grid.contentsMargins(), QMargins(11, 11, 11, 11));
    ASSERT_EQ(grid.count(), 2);
    expectCell(grid, 0, 0);
    expectCell(grid, 1, 1);
    EXPECT_EQ(grid.itemAt(0)->widget(), dialog.webViewFake);
    EXPECT_EQ(grid.itemAt(1)->layout(), dialog.horizontalLayout);
    EXPECT_EQ(dialog.webViewFake->objectName(), u"webViewFake"_qs);
    EXPECT_STREQ(dialog.webViewFake->metaObject()->className(), "QWidget");
    expectPolicy(*dialog.webViewFake, QSizePolicy::Expanding, QSizePolicy::Expanding);
}

TEST_F(ShowHtmlModalWindow, HasItsCloseButtonAtTheRight)
{
    const Dlg_QT_ShowHtmlModalWindow dialog(nullptr);
    const QHBoxLayout &row = *dialog.horizontalLayout;
    EXPECT_EQ(row.objectName(), u"horizontalLayout"_qs);
    EXPECT_EQ(row.spacing(), 6);
    EXPECT_EQ(row.sizeConstraint(), QLayout::SetDefaultConstraint);
    ASSERT_EQ(row.count(), 2);
    expectSpacer(row.itemAt(0));
    EXPECT_EQ(row.itemAt(1)->widget(), dialog.closeButton);
    EXPECT_EQ(dialog.closeButton->objectName(), u"closeButton"_qs);
    EXPECT_EQ(dialog.closeButton->text(), u"Close"_qs);
    expectIcon(dialog.closeButton->icon(), u":/images/cancel.png"_qs);
    expectPolicy(*dialog.closeButton, QSizePolicy::Minimum, QSizePolicy::Fixed);
    const QSignalSpy accepted(&dialog, &QDialog::accepted);
    dialog.closeButton->click();
    EXPECT_EQ(accepted.count(), 1);
}

TEST_F(ShowHtmlModalWindow, PutsTheViewIntoTheCellOfThePlaceholder)
{
    {
        const Dlg_QT_ShowHtmlModalWindow dialog(nullptr);
        EXPECT_EQ(calls, (Calls{"make for webView", "loadUrl about:blank"}));
        ASSERT_EQ(dialog.gridLayout->count(), 3);
        int row = -1, column = -1, rows = 0, columns = 0;
        dialog.gridLayout->getItemPosition(2, &row, &column, &rows, &columns);
        EXPECT_EQ((std::array{row, column, rows, columns}), (std::array{0, 0, 1, 1}));
        EXPECT_EQ(dialog.gridLayout->itemAt(2)->widget()->parentWidget(), &dialog);
    }
    EXPECT_EQ(calls, (Calls{"make for webView", "loadUrl about:blank", "delete"}));
}

TEST_F(ShowHtmlModalWindow, OpensItsPageWheneverItIsShown)
{
    Dlg_QT_ShowHtmlModalWindow dialog(nullptr);
    calls.clear();
    dialog.setPage(u"first"_qs);
    dialog.show();
    EXPECT_TRUE(dialog.gridLayout->itemAt(2)->widget()->isVisible());
    dialog.hide();
    dialog.setPage(u"second"_qs);
    dialog.show();
    EXPECT_EQ(calls, (Calls{"openPage first", "openPage second"}));
}

TEST_F(ShowHtmlModalWindow, IsEmptyWhenTheHostMakesNoView)
{
    HostSdk::installWebViewMaker(nullptr);
    Dlg_QT_ShowHtmlModalWindow dialog(nullptr);
    dialog.setPage(u"page"_qs);
    dialog.show();
    EXPECT_TRUE(dialog.closeButton->isVisible());
    EXPECT_EQ(dialog.gridLayout->count(), 2);
    EXPECT_EQ(calls, Calls{});
}

TEST_F(ShowHtmlModalWindow, IsEmptyWhenTheViewHasNoWidget)
{
    viewKind = ViewKind::WithoutWidget;
    Dlg_QT_ShowHtmlModalWindow dialog(nullptr);
    EXPECT_EQ(calls, (Calls{"make for webView"}));
    dialog.show();
    EXPECT_TRUE(dialog.closeButton->isVisible());
    EXPECT_EQ(dialog.gridLayout->count(), 2);
}
