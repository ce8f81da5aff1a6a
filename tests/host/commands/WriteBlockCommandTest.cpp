#include "host/drawing/Blocks.h"
#include "host/drawing/selection/Candidates.h"
#include "tests/host/commands/CommandTest.h"

#include <QTemporaryDir>

namespace {

using testing::ElementsAre;

class WriteBlockCommand : public CommandTest
{
protected:
    void SetUp() override
    {
        evaluate("(command \"_.line\" '(5 5) '(6 5) \"\" \"_.point\" '(7 7))");
        evaluate("(command \"_.-block\" \"pair\" '(5 5) (ssget \"_X\") \"\" \"_.circle\" '(1 2) 3)");
    }
    QString path() const { return m_folder.filePath(QStringLiteral("part.dxf")); }
    std::string quoted() const { return '"' + path().toStdString() + '"'; }
    std::vector<std::string> written()
    {
        const drawing::Drawing part(path());
        std::vector<std::string> types;
        for (const drawing::RecordId entity : selection::allEntities(part))
            types.push_back(QString::fromStdU16String(part.database().type(entity)).toStdString());
        return types;
    }
    geometry::Vector firstPlace()
    {
        const drawing::Drawing part(path());
        return drawing::placeOf(part.database().groups(selection::allEntities(part).at(0)), 10);
    }

    QTemporaryDir m_folder;
};

TEST_F(WriteBlockCommand, WritesABlock)
{
    evaluate("(command \"_.wblock\" " + quoted() + " \"PAIR\")");
    EXPECT_THAT(written(), ElementsAre("POINT", "LINE")); // as they were selected
    EXPECT_EQ(firstPlace().x, 2);                         // from the base of the block
    EXPECT_EQ(drawing::Drawing(path()).tables().find(drawing::known::Block, u"pair"), drawing::NoRecord);
    EXPECT_THAT(types(), ElementsAre("CIRCLE"));
}

TEST_F(WriteBlockCommand, WritesTheWholeDrawing)
{
    evaluate("(command \"_.wblock\" " + quoted() + " \"*\")");
    EXPECT_THAT(written(), ElementsAre("CIRCLE"));
    EXPECT_NE(drawing::Drawing(path()).tables().find(drawing::known::Block, u"pair"), drawing::NoRecord);
}

TEST_F(WriteBlockCommand, WritesSelectedObjectsAndTakesThemOut)
{
    evaluate("(command \"_.point\" '(9 9)) (setq p (entlast))");
    evaluate("(command \"_.-insert\" \"pair\" '(10 10) 1 1 0)");
    evaluate("(command \"_.wblock\" " + quoted() + " \"\" '(9 8) p (entlast) \"\")");
    EXPECT_THAT(written(), ElementsAre("POINT", "INSERT"));
    EXPECT_EQ(firstPlace().y, 1);
    EXPECT_NE(drawing::Drawing(path()).tables().find(drawing::known::Block, u"pair"), drawing::NoRecord);
    EXPECT_THAT(types(), ElementsAre("CIRCLE"));
    evaluate("(command \"_.oops\")");
    EXPECT_THAT(types(), ElementsAre("CIRCLE", "POINT", "INSERT"));
}

TEST_F(WriteBlockCommand, AsksBeforeItReplacesAFile)
{
    evaluate("(command \"_.wblock\" " + quoted() + " \"pair\")");
    takePrinted();
    evaluate("(command \"_.wblock\" " + quoted() + " \"_n\")");
    EXPECT_EQ(takePrinted(), "\nThe drawing was not saved.\n");
    evaluate("(command \"_.wblock\" " + quoted() + " \"_y\" \"*\")");
    EXPECT_THAT(written(), ElementsAre("CIRCLE"));
}

TEST_F(WriteBlockCommand, AMissingBlockOrFolderIsNamed)
{
    evaluate("(command \"_.wblock\" " + quoted() + " \"none\")");
    EXPECT_EQ(takePrinted(), "\nBlock \"none\" not found.\n");
    evaluate("(command \"_.wblock\" \"/no/such/folder/a\" \"pair\")");
    EXPECT_THAT(takePrinted(), testing::HasSubstr("/no/such/folder/a.dxf"));
}

} // namespace
