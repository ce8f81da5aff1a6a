#include "dialogs/Dlg_MTextEditor.h"
#include "tests/dialogs/FormChecks.h"

#include <QSignalSpy>
#include <QStyle>

#include <gtest/gtest.h>

#include <array>

namespace {

// What the style gives to a layout inside another one where the form says nothing.
int defaultMargin(const QLayout &layout, QStyle::PixelMetric metric)
{
    return layout.parentWidget()->style()->pixelMetric(metric, nullptr, layout.parentWidget());
}

class MTextEditor : public testing::Test
{
protected:
    Dlg_MTextEditor m_dialog{nullptr};
};

} // namespace

TEST_F(MTextEditor, HasTheValuesOfItsForm)
{
    EXPECT_EQ(m_dialog.objectName(), u"Dlg_MTextEditor"_qs);
    EXPECT_EQ(m_dialog.windowTitle(), u"TXTED"_qs);
    EXPECT_EQ(m_dialog.windowModality(), Qt::ApplicationModal);
    EXPECT_EQ(m_dialog.size(), QSize(400, 350));
    EXPECT_EQ(m_dialog.minimumSize(), QSize(400, 350));
    EXPECT_EQ(m_dialog.maximumSize(), QSize(800, 600));
    expectPolicy(m_dialog, QSizePolicy::Fixed, QSizePolicy::Fixed);
    expectDialogFlags(m_dialog);
    expectDoesNotQuit(m_dialog);
    EXPECT_STREQ(m_dialog.metaObject()->className(), "Dlg_MTextEditor");
    EXPECT_STREQ(m_dialog.metaObject()->superClass()->className(), "CFxDialog");
    EXPECT_EQ(m_dialog.qt_metacast("Ui::Dlg_MTextEditor"), static_cast<Ui::Dlg_MTextEditor *>(&m_dialog));
}

TEST_F(MTextEditor, HoldsItsContentInAGridOfOneCell)
{
    const QGridLayout &grid = *m_dialog.gridLayout;
    EXPECT_EQ(m_dialog.layout(), &grid);
    EXPECT_EQ(grid.objectName(), u"gridLayout"_qs);
    EXPECT_EQ(grid.horizontalSpacing(), 6);
    EXPECT_EQ(grid.verticalSpacing(), 6);
    EXPECT_EQ(grid.contentsMargins(), QMargins(11, 11, 11, 11));
    ASSERT_EQ(grid.count(), 1);
    EXPECT_EQ(grid.itemAt(0)->layout(), m_dialog.contentLayout);
    int row = -1, column = -1, rows = 0, columns = 0;
    grid.getItemPosition(0, &row, &column, &rows, &columns);
    EXPECT_EQ((std::array{row, column, rows, columns}), (std::array{0, 0, 1, 1}));
}

TEST_F(MTextEditor, StacksLabelEditorAndButtons)
{
    const QVBoxLayout &content = *m_dialog.contentLayout;
    EXPECT_EQ(content.objectName(), u"contentLayout"_qs);
    EXPECT_EQ(content.spacing(), 6);
    EXPECT_EQ(content.contentsMargins(), QMargins(0, 0, 0, 0));
    ASSERT_EQ(content.count(), 3);
    EXPECT_EQ(content.itemAt(0)->widget(), m_dialog.labelSubtitle);
    EXPECT_EQ(content.itemAt(1)->widget(), m_dialog.textEditor);
    EXPECT_EQ(content.itemAt(2)->layout(), m_dialog.horizontalLayout);
}

TEST_F(MTextEditor, LeavesTheOtherMarginsToTheStyle)
{
    // A layout on a widget shows what the style has for the margins that the form leaves open; inside another layout
    // they are nothing.
    QWidget top;
    auto *row = new QHBoxLayout(&top);
    row->setContentsMargins(-1, 12, -1, -1);
    EXPECT_EQ(row->contentsMargins().left(), defaultMargin(*row, QStyle::PM_LayoutLeftMargin));
    EXPECT_EQ(m_dialog.horizontalLayout->contentsMargins(), QMargins(0, 12, 0, 0));
}

TEST_F(MTextEditor, HasALabelThatLeadsToTheEditor)
{
    EXPECT_EQ(m_dialog.labelSubtitle->objectName(), u"labelSubtitle"_qs);
    EXPECT_EQ(m_dialog.labelSubtitle->text(), u"&Note"_qs);
    EXPECT_EQ(m_dialog.labelSubtitle->buddy(), m_dialog.textEditor);
    EXPECT_EQ(m_dialog.textEditor->objectName(), u"textEditor"_qs);
    EXPECT_EQ(m_dialog.textEditor->focusPolicy(), Qt::StrongFocus);
}

TEST_F(MTextEditor, HasItsButtonsAtTheRight)
{
    const QHBoxLayout &row = *m_dialog.horizontalLayout;
    EXPECT_EQ(row.objectName(), u"horizontalLayout"_qs);
    EXPECT_EQ(row.spacing(), 6);
    ASSERT_EQ(row.count(), 3);
    expectSpacer(row.itemAt(0));
    EXPECT_EQ(row.itemAt(1)->widget(), m_dialog.okButton);
    EXPECT_EQ(row.itemAt(2)->widget(), m_dialog.cancelButton);
    EXPECT_EQ(m_dialog.okButton->objectName(), u"okButton"_qs);
    EXPECT_EQ(m_dialog.okButton->text(), u"OK"_qs);
    expectIcon(m_dialog.okButton->icon(), u":/images/ok.png"_qs);
    EXPECT_EQ(m_dialog.cancelButton->objectName(), u"cancelButton"_qs);
    EXPECT_EQ(m_dialog.cancelButton->text(), u"Cancel"_qs);
    expectIcon(m_dialog.cancelButton->icon(), u":/images/cancel.png"_qs);
}

TEST_F(MTextEditor, IsAcceptedByOkAndRejectedByCancel)
{
    const QSignalSpy accepted(&m_dialog, &QDialog::accepted);
    const QSignalSpy rejected(&m_dialog, &QDialog::rejected);
    m_dialog.okButton->click();
    EXPECT_EQ(accepted.count(), 1);
    EXPECT_EQ(rejected.count(), 0);
    m_dialog.cancelButton->click();
    EXPECT_EQ(accepted.count(), 1);
    EXPECT_EQ(rejected.count(), 1);
}
