// What entmod changes, by the lists that entget gives and by any others.

#include "host/kernel/drawing/EntityData.h"
#include "host/kernel/drawing/EntityName.h"
#include "lisp/LispStatus.h"
#include "tests/host/commands/CommandTest.h"

namespace {

class Changing : public CommandTest
{
protected:
    // Of an entity that was made last, without its handle.
    drawing::GroupList groupsBesideTheHandle()
    {
        drawing::GroupList groups = lastGroups();
        std::erase_if(groups, [](const drawing::Group &group) { return group.code == drawing::groupcode::Handle; });
        return groups;
    }
    std::string bytes() { return std::string(database().bytes(last())); }
};

constexpr const char *Samples[] = {
    R"(((0 . "LINE") (62 . 3) (10 1.0 2.0 0.0) (11 3.5 -4.0 0.0)))",
    R"(((0 . "POINT") (10 1.0 2.0 3.0)))",
    R"(((0 . "CIRCLE") (10 1.0 2.0 0.0) (40 . 5.25)))",
    R"(((0 . "ARC") (10 1.0 2.0 0.0) (40 . 5.0) (50 . 0.5) (51 . 1.25)))",
    R"(((0 . "TEXT") (10 1.0 2.0 0.0) (40 . 2.5) (1 . "door ^ \\U+00E4") (50 . 0.5)))",
    R"(((0 . "MTEXT") (100 . "AcDbEntity") (100 . "AcDbMText") (10 1.0 2.0 0.0) (40 . 2.5) (1 . "two\\Plines")))",
    R"(((0 . "LWPOLYLINE") (100 . "AcDbEntity") (100 . "AcDbPolyline") (90 . 3) (70 . 1) (10 0.0 0.0) (42 . 1.0)
        (10 5.0 0.0) (10 5.0 5.0)))",
    R"(((0 . "ELLIPSE") (100 . "AcDbEntity") (100 . "AcDbEllipse") (10 0.0 0.0 0.0) (11 4.0 0.0 0.0) (40 . 0.5)
        (41 . 0.0) (42 . 3.0)))",
};

class ChangingEachValue : public Changing, public testing::WithParamInterface<const char *>
{
};

} // namespace

// A list whose name stands twice is not what entget gives, so that it goes the way of any list.
TEST_P(ChangingEachValue, OfAListingDoesWhatAnyListDoes)
{
    evaluate("(defun other (value)"
             "  (cond ((numberp value) (+ value 1))"
             "        ((= (type value) 'STR) (strcat value \"x\"))"
             "        ((= (type value) 'LIST) (cons (+ (car value) 0.5) (cdr value)))"
             "        (T value)))"
             "(defun with-other (data place / new)"
             "  (foreach group data"
             "    (setq new (cons (if (= (length new) place) (cons (car group) (other (cdr group))) group) new)))"
             "  (reverse new))"
             "(defun make () (entget (entmakex (quote " +
             std::string(GetParam()) + "))))");
    const int count = std::stoi(evaluate("(length (make))"));
    ASSERT_GT(count, 8);
    int changed = 0;
    for (int place = 1; place < count; ++place) {
        const std::string group = evaluate("(nth " + std::to_string(place) + " (make))");
        const drawing::GroupList before = groupsBesideTheHandle();
        const std::string data = "(with-other (make) " + std::to_string(place) + ")";
        const bool isTaken = evaluate("(entmod " + data + ")") != "nil";
        const drawing::GroupList found = groupsBesideTheHandle();
        const bool isAnyTaken = evaluate("(entmod (cons (car (setq data " + data + ")) data))") != "nil";
        EXPECT_EQ(isTaken, isAnyTaken) << group;
        EXPECT_EQ(found, groupsBesideTheHandle()) << group;
        changed += found != before;
    }
    EXPECT_GT(changed, 3);
}

INSTANTIATE_TEST_SUITE_P(Entities, ChangingEachValue, testing::ValuesIn(Samples),
                         [](const auto &sample) { return "sample" + std::to_string(sample.index); });

TEST_F(Changing, TakesANumberOfAnotherTypeForTheSame)
{
    evaluate("(setq data (entget (entmakex '((0 . \"CIRCLE\") (62 . 3) (10 1.0 2.0 0.0) (40 . 5.0)))))");
    const std::string before = bytes();
    EXPECT_NE(evaluate("(entmod (subst '(40 . 5) (assoc 40 data) (subst '(62 . 3.0) (assoc 62 data) data)))"), "nil");
    EXPECT_EQ(bytes(), before);
}

TEST_F(Changing, OfTheHandleOrOwnerInTheListChangesNothing)
{
    evaluate("(setq data (entget (entmakex '((0 . \"POINT\") (10 1.0 2.0 0.0)))))");
    const std::string before = bytes();
    EXPECT_NE(evaluate("(entmod (subst '(5 . \"FFFF\") (assoc 5 data) data))"), "nil");
    EXPECT_NE(evaluate("(entmod (subst (cons 330 (cdr (assoc -1 data))) (assoc 330 data) data))"), "nil");
    EXPECT_EQ(bytes(), before);
    EXPECT_EQ(evaluate("(entmod (subst '(0 . \"LINE\") (assoc 0 data) data))"), "nil");
}

TEST_F(Changing, IsSeenByTheNextLookAtTheEntity)
{
    evaluate("(setq point (entmakex '((0 . \"POINT\") (10 1.0 2.0 0.0))) data (entget point))");
    evaluate("(command \"_.UNDO\" \"_Mark\")");
    evaluate("(entmod (subst '(10 7.0 8.0 9.0) (assoc 10 data) data))");
    EXPECT_EQ(evaluate("(cdr (assoc 10 (entget point)))"), "(7.0 8.0 9.0)");
    EXPECT_EQ(evaluate("(cdr (assoc 10 data))"), "(1.0 2.0 0.0)");
    evaluate("(command \"_.UNDO\" \"_Back\")");
    EXPECT_EQ(evaluate("(cdr (assoc 10 (entget point)))"), "(1.0 2.0 0.0)");
    evaluate("(entdel point)");
    EXPECT_EQ(evaluate("(entget point)"), "nil");
}

TEST_F(Changing, OfAListThatHoldsAWrongGroupIsAnErrorThatNamesIt)
{
    evaluate("(setq data (entget (entmakex '((0 . \"POINT\") (10 1.0 2.0 0.0)))))");
    EXPECT_EQ(evaluate("(entmod (subst '(8 . 5) (assoc 8 data) data))"), "error: bad DXF group: (8 . 5)");
}

TEST_F(Changing, OfAnInsertShowsBlocksThatAreThereAndDoNotHoldIt)
{
    evaluate("(defun block (name shown)"
             "  (entmake (list '(0 . \"BLOCK\") (cons 2 name) '(70 . 0) '(10 0.0 0.0 0.0)))"
             "  (if shown (entmake (list '(0 . \"INSERT\") (cons 2 shown) '(10 0.0 0.0 0.0))))"
             "  (entmake '((0 . \"ENDBLK\"))))"
             "(defun shown (insert name) (setq data (entget insert))"
             "  (entmod (subst (cons 2 name) (assoc 2 data) data)))"
             "(block \"EMPTY\" nil) (block \"OTHER\" nil) (block \"T\" \"EMPTY\") (block \"ROUND\" \"T\")"
             "(setq insert (entnext (tblobjname \"BLOCK\" \"T\")))");
    EXPECT_EQ(evaluate("(shown insert \"T\")"), "nil");
    EXPECT_EQ(evaluate("(shown insert \"ROUND\")"), "nil"); // it holds T
    EXPECT_EQ(evaluate("(shown insert \"NOPE\")"), "nil");
    EXPECT_EQ(evaluate("(cdr (assoc 2 (entget insert)))"), "\"EMPTY\"");
    EXPECT_NE(evaluate("(shown insert \"OTHER\")"), "nil");
    evaluate("(setq outside (entmakex '((0 . \"INSERT\") (2 . \"T\") (10 0.0 0.0 0.0))))");
    EXPECT_NE(evaluate("(shown outside \"ROUND\")"), "nil");
    EXPECT_EQ(evaluate("(shown outside \"NOPE\")"), "nil");
}

TEST_F(Changing, ExtendedDataHasItsSizeInWhateverListItIs)
{
    const std::string one = evaluate("(xdsize '(\"A\" (1000 . \"four\")))");
    EXPECT_EQ(evaluate("(xdsize '((\"A\" (1000 . \"four\"))))"), one);
    EXPECT_EQ(evaluate("(xdsize '(-3 (\"A\" (1000 . \"four\"))))"), one);
    EXPECT_EQ(evaluate("(xdsize '((\"A\" (1000 . \"four\")) (\"B\" (1000 . \"four\"))))"),
              std::to_string(2 * std::stoi(one)));
}

TEST_F(Changing, AddsNoMoreExtendedDataThanAnEntityHoldsOfAllApplications)
{
    evaluate("(regapp \"A\") (regapp \"B\") (setq text \"\") (repeat 25 (setq text (strcat text \"0123456789\")))"
             "(setq point (entmakex '((0 . \"POINT\") (10 0.0 0.0 0.0))))"
             "(defun put (application count / data) (repeat count (setq data (cons (cons 1000 text) data)))"
             "  (entmod (list (cons -1 point) (list -3 (cons application data)))))");
    EXPECT_NE(evaluate("(put \"A\" 60)"), "nil"); // 254 bytes each
    EXPECT_EQ(evaluate("(put \"B\" 6)"), "nil");
    EXPECT_NE(evaluate("(put \"B\" 3)"), "nil");
    EXPECT_NE(evaluate("(put \"A\" 61)"), "nil"); // in place of what A has
    EXPECT_NE(evaluate("(put \"A\" 0)"), "nil");
    EXPECT_NE(evaluate("(put \"B\" 60)"), "nil");
}

namespace {

class ChangingByAModule : public CommandTest
{
protected:
    int entMod(drawing::RecordId record, int code, LispValue value)
    {
        resbuf group{nullptr, static_cast<std::int16_t>(code), value};
        resbuf name{&group, NameCode, {}};
        name.resval.name = nodeName(m_document.drawing(), record);
        return m_document.lispHost()->entMod(&name);
    }
};

} // namespace

TEST_F(ChangingByAModule, AListThatTheEntityCannotHaveChangesNothing)
{
    const drawing::RecordId circle = add({{0, u"CIRCLE"}, {10, drawing::Point{1, 2, 0}}, {40, 2.5}});
    const std::string before(database().bytes(circle));
    LispValue radius{};
    radius.real = -1;
    EXPECT_EQ(entMod(circle, 40, radius), StatusError);
    std::u16string type = u"LINE";
    LispValue text{};
    text.string = type.data();
    EXPECT_EQ(entMod(circle, 0, text), StatusError);
    EXPECT_EQ(database().bytes(circle), before);
    radius.real = 4;
    EXPECT_EQ(entMod(circle, 40, radius), StatusNormal);
    EXPECT_EQ(drawing::findGroup(lastGroups(), 40)->value, drawing::GroupValue(4.0));
}

TEST_F(ChangingByAModule, AnotherNameOfALayerIsFollowedByItsEntities)
{
    evaluate(R"((entmake '((0 . "LAYER") (100 . "AcDbSymbolTableRecord") (100 . "AcDbLayerTableRecord") (2 . "Old")
                           (70 . 0))))");
    evaluate(R"((entmake '((0 . "POINT") (8 . "Old") (10 1.0 2.0 0.0))))");
    const drawing::RecordId layer = m_document.drawing().tables().find(drawing::known::Layer, u"Old");
    std::u16string name = u"New";
    LispValue text{};
    text.string = name.data();
    EXPECT_EQ(entMod(layer, 2, text), StatusNormal);
    EXPECT_EQ(evaluate("(cdr (assoc 8 (entget (entlast))))"), "\"New\"");
}
