#include "host/drawing/Blocks.h"
#include "tests/host/commands/CommandTest.h"
#include "tests/host/drawing/Audit.h"

#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <set>

namespace {

using drawing::placeOf;
using drawing::textOf;
using geometry::Vector;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// Another drawing in a folder of its own, part.dxf, of what a program draws.
class InsertedDrawing : public CommandTest
{
protected:
    void draw(const std::string &program)
    {
        Document part(m_services);
        const std::string source =
            "(setvar \"CMDECHO\" 0) " + program + " (command \"_.saveas\" \"\" " + quoted() + ")";
        QFile::remove(path());
        part.machine().load(QString::fromStdString(source).toStdU16String(), u"");
        ASSERT_TRUE(QFile::exists(path()));
        takePrinted();
    }
    void writeFile(const QByteArray &bytes)
    {
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }
    static QByteArray oldDrawing(const QByteArray &entities, const QByteArray &sections = {})
    {
        return "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1009\n0\nENDSEC\n" + sections + "0\nSECTION\n2\nENTITIES\n" +
               entities + "0\nENDSEC\n0\nEOF\n";
    }
    void openOldDrawing()
    {
        writeFile(oldDrawing("0\nPOINT\n5\n2F\n8\n0\n10\n0\n20\n0\n"));
        m_document.open(path());
    }
    QString path() const { return m_folder.filePath(QStringLiteral("part.dxf")); }
    std::string quoted(const std::string &before = {}) const { return '"' + before + path().toStdString() + '"'; }
    void insert(const std::string &name) { evaluate("(command \"_.-insert\" " + name + " '(10 20) 1 1 0)"); }

    std::vector<drawing::RecordId> inBlock(std::u16string_view name)
    {
        return drawing::entitiesIn(database(), record(drawing::known::Block, name));
    }
    std::vector<std::string> typesIn(std::u16string_view name)
    {
        std::vector<std::string> types;
        for (const drawing::RecordId entity : inBlock(name))
            types.push_back(QString::fromStdU16String(database().type(entity)).toStdString());
        return types;
    }
    drawing::RecordId record(drawing::NameId table, std::u16string_view name)
    {
        return m_document.drawing().tables().find(table, name);
    }
    drawing::Handle handle(drawing::RecordId id) { return {database().record(id).handle}; }
    std::vector<drawing::Handle> extendedHandles(drawing::RecordId id)
    {
        std::vector<drawing::Handle> handles;
        drawing::GroupReader reader = database().reader(id);
        for (drawing::Item item; reader.next(item);)
            if (item.code == 1005)
                handles.push_back({item.handle});
        return handles;
    }
    std::string valueOf(int code, const char *table, const char *name)
    {
        return evaluate("(cdr (assoc " + std::to_string(code) + " (tblsearch \"" + table + "\" \"" + name + "\")))");
    }

    QTemporaryDir m_folder;
};

constexpr const char *Circle = "(command \"_.circle\" '(3 4) 1)";

TEST_F(InsertedDrawing, AFileBecomesABlockAndIsInserted)
{
    draw("(setvar \"INSBASE\" '(3 4 0)) (command \"_.circle\" '(3 4) 1 \"_.point\" '(0 0))");
    insert(quoted());
    EXPECT_THAT(types(), ElementsAre("INSERT"));
    EXPECT_EQ(textOf(lastGroups(), 2), u"part");
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{10, 20, 0}));
    EXPECT_THAT(typesIn(u"part"), ElementsAre("CIRCLE", "POINT"));
    EXPECT_EQ(valueOf(10, "BLOCK", "part"), "(3.0 4.0 0.0)");
    EXPECT_EQ(evaluate("(getvar \"INSNAME\")"), "\"part\"");
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(InsertedDrawing, ItIsLookedForAsProgramsAre)
{
    draw(Circle);
    m_document.machine().searchFolders().push_back(m_folder.path().toStdU16String());
    insert("\"part\"");
    EXPECT_THAT(typesIn(u"part"), ElementsAre("CIRCLE"));
    evaluate("(command \"_.erase\" \"_all\" \"\")");
    draw("(command \"_.point\" '(0 0))");
    insert("\"PART\""); // is a block by now
    EXPECT_THAT(typesIn(u"part"), ElementsAre("CIRCLE"));
}

TEST_F(InsertedDrawing, WhatItsObjectsNeedComesAlong)
{
    draw("(command \"_.-layer\" \"_n\" \"Walls\" \"_c\" 3 \"Walls\" \"_lt\" \"center\" \"Walls\" \"\""
         " \"_.-style\" \"Notes\" \"romans.shx\" 0 0.8 0 \"_n\" \"_n\" \"_n\" \"_.-linetype\" \"_s\" \"hidden\" \"\""
         " \"_.text\" '(0 0) 2 0 \"note\" \"_.circle\" '(0 0) 1 \"_.-block\" \"inner\" '(0 0) \"_l\" \"\""
         " \"_.-insert\" \"inner\" '(5 5) 1 1 0 \"_.chprop\" \"_l\" \"\" \"_la\" \"Walls\" \"\""
         " \"_.pline\" '(0 0) '(1 0) '(1 1) \"_c\" \"_.-hatch\" \"ansi31\" 1 0 \"_l\" \"\""
         " \"_.dimlinear\" '(0 0) '(9 0) '(5 5))"
         "(regapp \"TEST\") (entmake '((0 . \"POINT\") (10 0 0 0) (-3 (\"TEST\" (1000 . \"kept\") (1005 . \"1F\")))))");
    insert(quoted());
    EXPECT_THAT(typesIn(u"part"), ElementsAre("TEXT", "INSERT", "LWPOLYLINE", "HATCH", "DIMENSION", "POINT"));
    EXPECT_THAT(typesIn(u"inner"), ElementsAre("CIRCLE"));
    EXPECT_EQ(valueOf(62, "LAYER", "Walls"), "3");
    EXPECT_EQ(valueOf(6, "LAYER", "Walls"), "\"center\"");
    EXPECT_EQ(valueOf(41, "STYLE", "Notes"), "0.8");
    for (const char *linetype : {"center", "hidden"})
        EXPECT_NE(evaluate(std::string("(tblsearch \"LTYPE\" \"") + linetype + "\")"), "nil");
    EXPECT_NE(evaluate("(tblsearch \"APPID\" \"TEST\")"), "nil");
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(InsertedDrawing, WhatTheDrawingHasUnderTheSameNameHolds)
{
    const std::string layer = "(command \"_.-layer\" \"_n\" \"Walls\" \"_c\" ";
    draw(layer + "3 \"Walls\" \"\" \"_.circle\" '(0 0) 1 \"_.-block\" \"inner\" '(0 0) \"_l\" \"\""
                 " \"_.-insert\" \"inner\" '(5 5) 1 1 0)");
    evaluate(layer + "1 \"Walls\" \"\" \"_.point\" '(0 0) \"_.-block\" \"INNER\" '(0 0) \"_l\" \"\")"
                     "(setvar \"CMDECHO\" 1)");
    insert(quoted());
    EXPECT_THAT(takePrinted(), HasSubstr("Duplicate definition of block INNER ignored."));
    EXPECT_EQ(valueOf(62, "LAYER", "Walls"), "1");
    EXPECT_THAT(typesIn(u"inner"), ElementsAre("POINT"));
    ASSERT_THAT(typesIn(u"part"), ElementsAre("INSERT"));
    EXPECT_EQ(textOf(database().groups(inBlock(u"part").front()), 2), u"INNER");
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(InsertedDrawing, PicturesOfDimensionsGetNamesOfTheirOwn)
{
    const std::string dimension = "(command \"_.dimlinear\" '(0 0) '(9 0) '(5 5))";
    draw(dimension + dimension);
    evaluate(dimension);
    insert(quoted());
    std::vector<std::u16string> pictures{textOf(database().groups(last()), 2)};
    for (const drawing::RecordId one : inBlock(u"part")) {
        pictures.push_back(textOf(database().groups(one), 2));
        EXPECT_THAT(inBlock(pictures.back()), testing::Not(IsEmpty()));
    }
    EXPECT_EQ(std::set<std::u16string>(pictures.begin(), pictures.end()).size(), 3u);
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(InsertedDrawing, VerticesAndAttributesComeWithTheirWholes)
{
    draw("(setvar \"PLINETYPE\" 0) (command \"_.pline\" '(0 0) '(1 0) '(1 1) \"\")"
         "(entmake '((0 . \"BLOCK\") (2 . \"B\") (70 . 2) (10 0 0 0)))"
         "(entmake '((0 . \"ATTDEF\") (10 0 0 0) (40 . 1.0) (1 . \"\") (3 . \"No\") (2 . \"NO\") (70 . 0)))"
         "(entmake '((0 . \"ENDBLK\"))) (command \"_.-insert\" \"B\" '(0 0) 1 1 0 \"17\")");
    insert(quoted());
    const std::vector<drawing::RecordId> entities = inBlock(u"part");
    ASSERT_EQ(entities.size(), 2u);
    EXPECT_EQ(drawing::partsOf(database(), entities[0]).size(), 4u);
    EXPECT_EQ(textOf(database().groups(drawing::partsOf(database(), entities[1]).front()), 1), u"17");
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(InsertedDrawing, ItsAttributeDefinitionsAreAskedFor)
{
    draw("(entmake '((0 . \"ATTDEF\") (10 0 0 0) (40 . 1.0) (1 . \"\") (3 . \"Number\") (2 . \"NO\") (70 . 0)))");
    evaluate("(command \"_.-insert\" " + quoted() + " '(0 0) 1 1 0 \"A17\")");
    EXPECT_EQ(textOf(database().groups(drawing::partsOf(database(), last()).front()), 1), u"A17");
    EXPECT_EQ(valueOf(70, "BLOCK", "part"), "2");
}

TEST_F(InsertedDrawing, HatchesAndLeadersLoseTheirBonds)
{
    draw(Circle);
    {
        drawing::Drawing part(path());
        drawing::Database &there = part.database();
        const drawing::RecordId section = there.section(drawing::known::Entities);
        const drawing::Handle circle{there.record(drawing::entitiesIn(there, section).front()).handle};
        const drawing::Point flat{3, 4, 0, 2}, place{3, 4, 0};
        const drawing::GroupList hatch{{0, u"HATCH"},
                                       {100, u"AcDbEntity"},
                                       {8, u"0"},
                                       {100, u"AcDbHatch"},
                                       {10, drawing::Point{}},
                                       {210, drawing::Point{0, 0, 1}},
                                       {2, u"SOLID"},
                                       {70, std::int64_t{1}},
                                       {71, std::int64_t{1}},
                                       {91, std::int64_t{1}},
                                       {92, std::int64_t{1}},
                                       {93, std::int64_t{1}},
                                       {72, std::int64_t{2}},
                                       {10, flat},
                                       {40, 1.0},
                                       {50, 0.0},
                                       {51, 360.0},
                                       {73, std::int64_t{1}},
                                       {97, std::int64_t{1}},
                                       {330, circle},
                                       {75, std::int64_t{0}},
                                       {76, std::int64_t{1}},
                                       {98, std::int64_t{0}}};
        const drawing::GroupList leader{{0, u"LEADER"},        {100, u"AcDbEntity"},   {8, u"0"},
                                        {100, u"AcDbLeader"},  {3, u"Standard"},       {71, std::int64_t{1}},
                                        {72, std::int64_t{0}}, {73, std::int64_t{0}},  {76, std::int64_t{2}},
                                        {10, place},           {10, drawing::Point{}}, {340, circle}};
        there.add(drawing::RecordKind::Entity, hatch, there.endOf(section));
        there.add(drawing::RecordKind::Entity, leader, there.endOf(section));
        QString failure;
        ASSERT_TRUE(drawing::saveDrawing(there, path(), drawing::Backup::None, failure));
    }
    insert(quoted());
    ASSERT_THAT(typesIn(u"part"), ElementsAre("CIRCLE", "HATCH", "LEADER"));
    const drawing::GroupList hatch = database().groups(inBlock(u"part")[1]);
    EXPECT_EQ(drawing::integerOf(hatch, 71), 0);
    EXPECT_EQ(drawing::integerOf(hatch, 97), 0);
    EXPECT_EQ(std::ranges::count(hatch, 330, &drawing::Group::code), 1); // the owner
    const drawing::GroupList leader = database().groups(inBlock(u"part")[2]);
    EXPECT_EQ(drawing::integerOf(leader, 73), 3);
    EXPECT_FALSE(drawing::hasGroup(leader, 340));
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(InsertedDrawing, TheBlockMayHaveAnotherName)
{
    draw(Circle);
    insert(quoted("Door="));
    EXPECT_EQ(textOf(lastGroups(), 2), u"Door");
    EXPECT_THAT(typesIn(u"door"), ElementsAre("CIRCLE"));
    EXPECT_EQ(evaluate("(tblsearch \"BLOCK\" \"part\")"), "nil");
}

TEST_F(InsertedDrawing, ABlockIsRedefinedOnlyWhenThatIsConfirmed)
{
    draw(Circle);
    insert(quoted("Door="));
    draw("(command \"_.point\" '(0 0))");
    evaluate("(command \"_.-insert\" " + quoted("door=") + " \"_n\" '(0 0) 1 1 0)");
    EXPECT_THAT(typesIn(u"Door"), ElementsAre("CIRCLE"));
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
    evaluate("(command \"_.-insert\" " + quoted("door=") + " \"_y\" nil)");
    EXPECT_THAT(typesIn(u"Door"), ElementsAre("POINT"));
    EXPECT_THAT(types(), ElementsAre("INSERT", "INSERT"));
    draw(Circle);
    evaluate("(setvar \"EXPERT\" 2) (command \"_.-insert\" " + quoted("door=") + " nil)");
    EXPECT_THAT(typesIn(u"Door"), ElementsAre("CIRCLE"));
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(InsertedDrawing, WithANameAndNothingBehindItTheFileOfThatNameIsReadAgain)
{
    m_document.machine().searchFolders().push_back(m_folder.path().toStdU16String());
    draw(Circle);
    insert("\"part\"");
    draw("(command \"_.point\" '(0 0))");
    evaluate("(command \"_.-insert\" \"part=\" \"_y\" nil)");
    EXPECT_THAT(typesIn(u"part"), ElementsAre("POINT"));
}

TEST_F(InsertedDrawing, WithAnAsteriskItsObjectsAreInsertedAndNoBlockStays)
{
    draw("(command \"_.circle\" '(3 4) 1 \"_.point\" '(0 0))");
    evaluate("(command \"_.-insert\" " + quoted("*") + " '(10 20) 2 0)");
    EXPECT_THAT(types(), ElementsAre("CIRCLE", "POINT"));
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{10, 20, 0}));
    EXPECT_EQ(evaluate("(tblsearch \"BLOCK\" \"part\")"), "nil");
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(InsertedDrawing, WithAnAsteriskAnEmptyModelLeavesNothing)
{
    draw("");
    evaluate("(command \"_.-insert\" " + quoted("*") + " '(10 20) 2 0)");
    EXPECT_EQ(takePrinted(), "");
    EXPECT_THAT(types(), IsEmpty());
    EXPECT_EQ(evaluate("(tblsearch \"BLOCK\" \"part\")"), "nil");
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(InsertedDrawing, OneUndoTakesAllOfItBack)
{
    draw("(command \"_.-layer\" \"_m\" \"Walls\" \"\" \"_.circle\" '(3 4) 1)");
    insert(quoted());
    evaluate("(command \"_.u\")");
    EXPECT_THAT(types(), IsEmpty());
    EXPECT_EQ(evaluate("(list (tblsearch \"BLOCK\" \"part\") (tblsearch \"LAYER\" \"Walls\"))"), "(nil nil)");
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(InsertedDrawing, ABlockThatWouldShowItselfIsRefused)
{
    draw(std::string(Circle) +
         "(command \"_.-block\" \"part\" '(0 0) \"_l\" \"\" \"_.-insert\" \"part\" '(0 0) 1 1 0)");
    insert(quoted());
    EXPECT_THAT(takePrinted(), HasSubstr("Block part references itself"));
    insert(quoted("Door="));
    EXPECT_THAT(takePrinted(), IsEmpty());
    // Through a block of the drawing, whose definition holds.
    evaluate("(command \"_.-block\" \"House\" '(0 0) \"_l\" \"\")");
    draw(std::string(Circle) +
         "(command \"_.-block\" \"House\" '(0 0) \"_l\" \"\" \"_.-insert\" \"House\" '(0 0) 1 1 0)");
    evaluate("(command \"_.-insert\" " + quoted("Door=") + " \"_y\")");
    EXPECT_THAT(takePrinted(), HasSubstr("Block Door references itself"));
    EXPECT_THAT(typesIn(u"Door"), ElementsAre("INSERT"));
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(InsertedDrawing, AFileThatIsNotThereOrNoDrawingIsSaid)
{
    evaluate("(command \"_.-insert\" \"no/such.dxf\")");
    EXPECT_EQ(takePrinted(), "\nCannot find file \"no/such.dxf\".\n");
    evaluate("(command \"_.-insert\" \"Door=nothing\")");
    EXPECT_EQ(takePrinted(), "\nCannot find file \"nothing\".\n");
    evaluate("(command \"_.-insert\" \"nothing\")");
    EXPECT_EQ(takePrinted(), "\nCannot find block \"nothing\".\n");
    writeFile("some text\nthat is no drawing\n");
    evaluate("(command \"_.-insert\" " + quoted() + ")");
    EXPECT_EQ(takePrinted(), "\n" + path().toStdString() + ": it is no drawing\n");
    EXPECT_EQ(evaluate("(tblsearch \"BLOCK\" \"part\")"), "nil");
    evaluate("(command \"_.-insert\" \"" + m_folder.path().toStdString() + "\")");
    EXPECT_THAT(takePrinted(), HasSubstr("Cannot find"));
}

TEST_F(InsertedDrawing, AnOldDrawingComesAsTheNewOneHasIt)
{
    writeFile("0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1009\n9\n$INSBASE\n10\n1\n20\n2\n30\n0\n0\nENDSEC\n"
              "0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nLAYER\n70\n1\n0\nLAYER\n2\nOLD\n70\n0\n62\n5\n6\nCONTINUOUS\n0\nENDT"
              "AB\n0\nENDSEC\n"
              "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\nOLD\n10\n0\n20\n0\n11\n5\n21\n5\n"
              "0\nPOLYLINE\n8\nOLD\n66\n1\n0\nVERTEX\n8\nOLD\n10\n0\n20\n0\n0\nVERTEX\n8\nOLD\n10\n1\n20\n1\n0\nSEQEND"
              "\n8\nOLD\n"
              "0\nENDSEC\n0\nEOF\n");
    insert(quoted());
    EXPECT_EQ(takePrinted(), "");
    EXPECT_THAT(typesIn(u"part"), ElementsAre("LINE", "POLYLINE"));
    EXPECT_EQ(valueOf(62, "LAYER", "OLD"), "5");
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(InsertedDrawing, PartsInAnOldDrawingHaveNoOwners)
{
    openOldDrawing();
    writeFile(oldDrawing("0\nPOLYLINE\n8\n0\n66\n1\n0\nVERTEX\n8\n0\n10\n0\n20\n0\n"
                         "0\nVERTEX\n8\n0\n10\n1\n20\n1\n0\nSEQEND\n8\n0\n"));
    insert(quoted());
    ASSERT_THAT(typesIn(u"part"), ElementsAre("POLYLINE"));
    std::vector<drawing::RecordId> records = drawing::partsOf(database(), inBlock(u"part").front());
    EXPECT_EQ(records.size(), 3u);
    records.push_back(inBlock(u"part").front());
    for (const drawing::RecordId one : records)
        EXPECT_FALSE(drawing::hasGroup(database().groups(one), drawing::groupcode::Owner)) << one;
}

TEST_F(InsertedDrawing, AnOldDrawingTakesNoLaterOne)
{
    openOldDrawing();
    draw(Circle);
    evaluate("(command \"_.-insert\" " + quoted("Door=") + ")");
    EXPECT_THAT(takePrinted(), HasSubstr("it is of a later version, which this drawing cannot hold"));
    EXPECT_EQ(evaluate("(tblsearch \"BLOCK\" \"Door\")"), "nil");
}

TEST_F(InsertedDrawing, TheSpacesOfAnOldDrawingBecomeNoBlocks)
{
    const auto block = [](const QByteArray &name) {
        return "0\nBLOCK\n8\n0\n2\n" + name + "\n70\n0\n10\n0\n20\n0\n0\nENDBLK\n8\n0\n";
    };
    writeFile(oldDrawing("0\nPOINT\n8\n0\n10\n0\n20\n0\n", "0\nSECTION\n2\nBLOCKS\n" + block("$MODEL_SPACE") +
                                                               block("$Paper_Space") + block("$PRICE") +
                                                               "0\nENDSEC\n"));
    insert(quoted());
    EXPECT_EQ(evaluate("(mapcar '(lambda (name) (tblsearch \"BLOCK\" name)) '(\"$MODEL_SPACE\" \"$PAPER_SPACE\"))"),
              "(nil nil)");
    EXPECT_EQ(valueOf(2, "BLOCK", "$PRICE"), "\"$PRICE\"");
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(InsertedDrawing, DimensionStylesOfAnOldDrawingKeepTheirArrows)
{
    using namespace drawing::known;
    const QByteArray part =
        oldDrawing("0\nPOINT\n8\n0\n10\n0\n20\n0\n",
                   "0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nDIMSTYLE\n70\n1\n0\nDIMSTYLE\n2\nOLD\n70\n0\n3\n\n4\n\n"
                   "5\nARROW\n6\n\n7\nTICK\n40\n2\n0\nENDTAB\n0\nENDSEC\n0\nSECTION\n2\nBLOCKS\n"
                   "0\nBLOCK\n8\n0\n2\nARROW\n70\n0\n10\n0\n20\n0\n0\nENDBLK\n8\n0\n"
                   "0\nBLOCK\n8\n0\n2\nTick\n70\n0\n10\n0\n20\n0\n0\nENDBLK\n8\n0\n0\nENDSEC\n");
    writeFile(part);
    insert(quoted());
    const drawing::GroupList style = database().groups(record(DimensionStyle, u"OLD"));
    const auto *arrow = drawing::findValue<drawing::Handle>(style, 342);
    ASSERT_NE(arrow, nullptr);
    EXPECT_EQ(*arrow, handle(record(BlockRecord, u"ARROW")));
    for (const int code : {5, 6, 7, 343})
        EXPECT_FALSE(drawing::hasGroup(style, code)) << code;
    evaluate("(command \"_.-dimstyle\" \"_r\" \"OLD\")");
    EXPECT_EQ(evaluate("(mapcar 'getvar '(\"DIMBLK\" \"DIMBLK1\" \"DIMBLK2\"))"), "(\"ARROW\" \"\" \"Tick\")");
    EXPECT_EQ(drawing::auditOf(database()), "");

    openOldDrawing();
    writeFile(part);
    insert(quoted());
    const drawing::GroupList old = database().groups(record(DimensionStyle, u"OLD"));
    EXPECT_EQ(textOf(old, 5), u"ARROW");
    EXPECT_EQ(textOf(old, 7), u"TICK");
    EXPECT_EQ(drawing::realOf(old, 40), 2);
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(InsertedDrawing, HandlesInExtendedDataLeadToWhatCameAlong)
{
    using namespace drawing::known;
    evaluate("(repeat 9 (command \"_.point\" '(0 0)) (command \"_.circle\" '(0 0) 1))");
    draw("(regapp \"TEST\") (command \"_.circle\" '(3 4) 1)"
         "(defun handle (entity) (cons 1005 (cdr (assoc 5 (entget entity)))))"
         "(setq circle (entlast))"
         "(entmake (list '(0 . \"LAYER\") '(100 . \"AcDbSymbolTableRecord\") '(100 . \"AcDbLayerTableRecord\")"
         " '(2 . \"Walls\") '(70 . 0) (list -3 (list \"TEST\" (handle circle)))))"
         "(entmake (list '(0 . \"POINT\") '(10 0 0 0) (list -3 (list \"TEST\" (handle circle)"
         " (handle (tblobjname \"LAYER\" \"Walls\")) (handle (tblobjname \"LAYER\" \"0\")) (handle (namedobjdict))"
         " '(1005 . \"0\") '(1000 . \"23\")))))"
         "(entmod (append (entget circle) (list (list -3 (list \"TEST\" (handle (entlast)))))))");
    insert(quoted());
    ASSERT_THAT(typesIn(u"part"), ElementsAre("CIRCLE", "POINT"));
    const drawing::RecordId circle = inBlock(u"part")[0], point = inBlock(u"part")[1];
    const drawing::RecordId walls = record(Layer, u"Walls");
    EXPECT_THAT(extendedHandles(circle), ElementsAre(handle(point)));
    EXPECT_THAT(extendedHandles(walls), ElementsAre(handle(circle)));
    EXPECT_THAT(extendedHandles(point), ElementsAre(handle(circle), handle(walls), handle(record(Layer, u"0")),
                                                    drawing::Handle{}, drawing::Handle{}));
    EXPECT_EQ(textOf(database().groups(point), 1000), u"23");
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(InsertedDrawing, DimensionsOfAnOldDrawingGetTheirMarkers)
{
    const std::u16string markers[] = {u"AcDbRotatedDimension",   u"AcDbAlignedDimension", u"AcDb2LineAngularDimension",
                                      u"AcDbDiametricDimension", u"AcDbRadialDimension",  u"AcDb3PointAngularDimension",
                                      u"AcDbOrdinateDimension"};
    for (int kind = 0; kind < 7; ++kind) {
        const QByteArray places = "13\n0\n23\n0\n14\n4\n24\n0\n15\n4\n25\n3\n16\n2\n26\n1\n40\n0\n50\n0\n";
        writeFile("0\nSECTION\n2\nBLOCKS\n0\nBLOCK\n8\n0\n2\n*D0\n70\n1\n10\n0\n20\n0\n"
                  "0\nLINE\n8\n0\n10\n0\n20\n2\n11\n4\n21\n2\n0\nENDBLK\n8\n0\n0\nENDSEC\n"
                  "0\nSECTION\n2\nENTITIES\n0\nDIMENSION\n8\n0\n2\n*D0\n10\n4\n20\n2\n11\n2\n21\n2\n70\n" +
                  QByteArray::number(kind) + "\n" + places + "0\nENDSEC\n0\nEOF\n");
        const std::u16string name = u"part" + QString::number(kind).toStdU16String();
        insert(quoted("part" + std::to_string(kind) + "="));
        ASSERT_EQ(inBlock(name).size(), 1u) << kind;
        const drawing::GroupList dimension = database().groups(inBlock(name).front());
        EXPECT_NE(std::ranges::find(dimension, drawing::Group{100, markers[kind]}), dimension.end()) << kind;
        EXPECT_EQ(inBlock(textOf(dimension, 2)).size(), 1u) << kind;
    }
    EXPECT_EQ(takePrinted(), "");
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(InsertedDrawing, WhatNeedsMoreThanComesAlongIsLeftOutAndSaid)
{
    draw(std::string(Circle) +
         "(entmake '((0 . \"3DSOLID\") (100 . \"AcDbEntity\") (8 . \"0\") (100 . \"AcDbModelerGeometry\") (70 . 1)))");
    insert(quoted());
    EXPECT_EQ(takePrinted(), "\n1 could not be put into the block.\n");
    EXPECT_THAT(typesIn(u"part"), ElementsAre("CIRCLE"));
}

} // namespace
