// The panels beside the drawing: its layers, and the data of what is selected.

#include "host/ui/gui/DrawingPanels.h"
#include "host/ui/gui/DrawingFiles.h"
#include "host/ui/gui/LayerPanel.h"
#include "host/ui/gui/PropertiesPanel.h"
#include "tests/host/ui/gui/GuiTest.h"
#include "tests/support/DialogWatcher.h"

#include <QClipboard>
#include <QDockWidget>
#include <QPushButton>
#include <QSpinBox>

using testing::ElementsAre;
using testing::EndsWith;

namespace {

class Panels : public GuiTest
{
protected:
    void type(const char *text) { GuiTest::type(QString::fromLatin1(text)); }

    // As "0 on thawed 7".
    std::vector<std::string> layerRows() const
    {
        std::vector<std::string> rows;
        for (int i = 0; i < layers.topLevelItemCount(); ++i) {
            const QTreeWidgetItem &item = *layers.topLevelItem(i);
            const bool isOn = item.checkState(LayerPanel::On) == Qt::Checked;
            const bool isFrozen = item.checkState(LayerPanel::Frozen) == Qt::Checked;
            rows.push_back(item.text(LayerPanel::Name).toStdString() + (isOn ? " on" : " off") +
                           (isFrozen ? " frozen " : " thawed ") + item.text(LayerPanel::Color).toStdString());
        }
        return rows;
    }
    // As a click on the box.
    void set(const QString &layer, LayerPanel::Column column, Qt::CheckState state)
    {
        layers.findItems(layer, Qt::MatchExactly).constFirst()->setCheckState(column, state);
        QCoreApplication::processEvents();
    }

    std::vector<std::string> properties()
    {
        std::vector<std::string> rows;
        auto *tree =
            interface.window().findChild<QWidget *>(QStringLiteral("propertiesPanel"))->findChild<QTreeWidget *>();
        for (int i = 0; i < tree->topLevelItemCount(); ++i) {
            const QTreeWidgetItem &entity = *tree->topLevelItem(i);
            rows.push_back(entity.text(0).toStdString());
            for (int j = 0; j < entity.childCount(); ++j)
                rows.push_back(entity.child(j)->text(0).toStdString() + ": " + entity.child(j)->text(1).toStdString());
        }
        return rows;
    }

    DrawingFiles files{interface.window(), runner, document};
    DrawingPanels panels{interface.window(), runner, document};
    LayerPanel &layers = *interface.window().findChild<LayerPanel *>();
    DialogWatcher person;
};

} // namespace

TEST_F(Panels, LayersAreShownByNameWithWhatTheyAre)
{
    EXPECT_THAT(layerRows(), ElementsAre("0 on thawed 7"));
    type("(command \"_.-LAYER\" \"_New\" \"walls,DOORS\" \"_Color\" 1 \"walls\" \"_Off\" \"doors\" \"_Freeze\" "
         "\"walls\" \"\")");
    EXPECT_THAT(layerRows(), ElementsAre("0 on thawed 7", "DOORS off thawed 7", "walls on frozen 1"));
    type("(entmake '((0 . \"LAYER\") (100 . \"AcDbSymbolTableRecord\") (100 . \"AcDbLayerTableRecord\")"
         " (2 . \"green\") (70 . 0) (62 . 3) (420 . 65280)))");
    EXPECT_THAT(layerRows(), testing::Contains("green on thawed 0,255,0"));
    type("(setvar \"CLAYER\" \"DOORS\")");
    EXPECT_TRUE(layers.findItems(QStringLiteral("DOORS"), Qt::MatchExactly).constFirst()->font(0).bold());
    EXPECT_FALSE(layers.findItems(QStringLiteral("0"), Qt::MatchExactly).constFirst()->font(0).bold());
}

TEST_F(Panels, ABoxThatIsClickedChangesTheLayerInOneStepToUndo)
{
    type("(command \"_.-LAYER\" \"_New\" \"walls,w*\" \"\")");
    set(QStringLiteral("walls"), LayerPanel::On, Qt::Unchecked);
    set(QStringLiteral("walls"), LayerPanel::Frozen, Qt::Checked);
    EXPECT_THAT(layerRows(), testing::Contains("walls off frozen 7"));
    type("(cdr (assoc 62 (tblsearch \"LAYER\" \"walls\")))");
    EXPECT_THAT(output(), EndsWith("\n-7\n"));
    type("u");
    EXPECT_THAT(layerRows(), testing::Contains("walls off thawed 7"));
    type("u");
    EXPECT_THAT(layerRows(), testing::Contains("walls on thawed 7"));
    set(QStringLiteral("walls"), LayerPanel::On, Qt::Unchecked);
    set(QStringLiteral("walls"), LayerPanel::On, Qt::Checked);
    EXPECT_THAT(layerRows(), testing::Contains("walls on thawed 7"));
}

TEST_F(Panels, TheCurrentLayerCanBeTurnedOffButNotFrozen)
{
    set(QStringLiteral("0"), LayerPanel::Frozen, Qt::Checked);
    EXPECT_THAT(layerRows(), ElementsAre("0 on thawed 7"));
    set(QStringLiteral("0"), LayerPanel::On, Qt::Unchecked);
    EXPECT_THAT(layerRows(), ElementsAre("0 off thawed 7"));
    EXPECT_FALSE(document.commandLine().isActive());
}

TEST_F(Panels, AColourThatIsClickedTwiceIsAskedFor)
{
    person.expect([](QDialog &dialog) {
        dialog.findChild<QSpinBox *>()->setValue(5);
        dialog.accept();
    });
    Q_EMIT layers.itemDoubleClicked(layers.topLevelItem(0), LayerPanel::Color);
    QCoreApplication::processEvents();
    EXPECT_THAT(layerRows(), ElementsAre("0 on thawed 5"));
}

TEST_F(Panels, PropertiesAreWhatEntgetGivesOfTheSelection)
{
    EXPECT_TRUE(properties().empty());
    type("(entmake '((0 . \"CIRCLE\") (8 . \"0\") (62 . 1) (10 1.0 2.0 0.0) (40 . 2.5)))");
    type("(command \"_.select\" (entlast) \"\")");
    const std::vector<std::string> shown = properties();
    ASSERT_FALSE(shown.empty());
    EXPECT_EQ(shown.front(), "CIRCLE");
    EXPECT_THAT(shown, testing::IsSupersetOf({"0: \"CIRCLE\"", "8: \"0\"", "62: 1", "10: 1.0 2.0 0.0", "40: 2.5"}));
    type("(entdel (entlast))");
    EXPECT_TRUE(properties().empty());
}

TEST_F(Panels, CopiedAsLispTheyMakeTheSameEntityAgain)
{
    auto *copy = interface.window().findChild<QPushButton *>(QStringLiteral("copyAsLisp"));
    EXPECT_FALSE(copy->isEnabled());
    type("(entmake '((0 . \"TEXT\") (8 . \"0\") (10 1.0 2.0 0.0) (40 . 2.5) (1 . \"a \\\"b\\\"\")))");
    type("(command \"_.select\" (entlast) \"\")");
    copy->click();
    const QString copied = QApplication::clipboard()->text().trimmed();
    EXPECT_TRUE(copied.startsWith(QStringLiteral("'((0 . \"TEXT\")")));
    GuiTest::type(QStringLiteral("(entmake ") + copied + u')');
    EXPECT_EQ(entityCount(), "2\n");
    type("(cdr (assoc 1 (entget (entlast))))");
    EXPECT_THAT(output(), EndsWith("\n\"a \\\"b\\\"\"\n"));
}

TEST_F(Panels, ThePlacesOfThePanelsAreRememberedAndTheViewMenuHidesThem)
{
    auto *dock = interface.window().findChild<QDockWidget *>(QStringLiteral("layerPanelDock"));
    ASSERT_NE(dock, nullptr);
    EXPECT_TRUE(dock->toggleViewAction()->isChecked());
    interface.window().addDockWidget(Qt::LeftDockWidgetArea, dock);
    interface.window().close();
    MainWindow next;
    auto *panel = new QWidget;
    panel->setObjectName(QStringLiteral("layerPanel"));
    next.addPanel(QStringLiteral("Layers"), panel);
    EXPECT_EQ(next.dockWidgetArea(next.findChild<QDockWidget *>(QStringLiteral("layerPanelDock"))),
              Qt::LeftDockWidgetArea);
}
