#include "tests/interpreter/core/EvaluateText.h"

#include "host/interpreter/Builtins.h"

namespace {

// As strings and lists die here by the thousand, a collector that frees too much shows in the results and under the
// address sanitizer, one that frees too little in the live size.
std::string runCollecting(lisp::Machine &machine, const std::string &source)
{
    const std::string result = evaluateText(machine, source);
    machine.collectGarbage();
    return result;
}

} // namespace

TEST(Heap, keepsWhatVariablesReach)
{
    lisp::Machine machine;
    EXPECT_EQ(
        runCollecting(machine, "(setq kept (list 1 \"two\" '(3 . 4) 5.5)) (setq fn (lambda (x) (list x \"in\")))"),
        "#<USUBR>");
    EXPECT_EQ(runCollecting(machine, "(repeat 100000 (list 1 2 3))"), "(1 2 3)");
    EXPECT_EQ(evaluateText(machine, "(list kept (fn 1))"), "((1 \"two\" (3 . 4) 5.5) (1 \"in\"))");
}

TEST(Heap, freesWhatNothingReaches)
{
    lisp::Machine machine;
    runCollecting(machine, "(setq x nil)");
    const std::size_t before = machine.heap().liveBytes();
    runCollecting(machine, "(repeat 200000 (setq x (cons 1 x)))");
    EXPECT_GT(machine.heap().liveBytes(), before + 3000000);
    runCollecting(machine, "(setq x nil)");
    EXPECT_LT(machine.heap().liveBytes(), before + 100000);
}

TEST(Heap, collectsByItselfDuringLongPrograms)
{
    lisp::Machine machine;
    EXPECT_EQ(evaluateText(machine, "(repeat 5000000 (cons 1 2))"), "(1 . 2)");
    EXPECT_GE(machine.heap().collections(), 4u);
}

TEST(Heap, keepsTheTemporariesOfFunctionsThatCallBack)
{
    lisp::Machine machine;
    EXPECT_EQ(evaluateText(machine, "(defun work (x) (gc) (repeat 10 (list x x)) (gc) (list x (itoa* x)))"
                                    "(defun itoa* (x) (cons x \"s\"))"
                                    "(mapcar 'work '(1 2 3))"),
              "((1 (1 . \"s\")) (2 (2 . \"s\")) (3 (3 . \"s\")))");
    EXPECT_EQ(evaluateText(machine, "(vl-remove-if '(lambda (x) (gc) (= x 2)) (list 1 2 3))"), "(1 3)");
    EXPECT_EQ(evaluateText(machine, "(vl-sort (list 3 1 2) '(lambda (a b) (gc) (< a b)))"), "(1 2 3)");
    EXPECT_EQ(evaluateText(machine, "(apply '(lambda (a b) (gc) (list a b)) (list (list 1) (list 2)))"), "((1) (2))");
}

TEST(Heap, keepsCompiledLambdaListsAsLongAsTheirLists)
{
    lisp::Machine machine;
    EXPECT_EQ(runCollecting(machine,
                            "(setq f (list 'lambda '(x) '(mapcar '(lambda (y) (list y \"k\")) x)))(apply f '((1 2)))"),
              "((1 \"k\") (2 \"k\"))");
    EXPECT_EQ(runCollecting(machine, "(repeat 1000 (apply (list 'lambda '(x) 'x) '(1)))"), "1");
    EXPECT_EQ(runCollecting(machine, "(apply f '((3)))"), "((3 \"k\"))");
}

TEST(Heap, appendingSharesButNeverChangesAString)
{
    lisp::Machine machine;
    lisp::Heap &heap = machine.heap();
    const std::u16string start(300, u'a');
    const lisp::Value base = heap.append(heap.string(start), u"b");
    const lisp::Value one = heap.append(base, u"1");
    const lisp::Value two = heap.append(base, u"2"); // base's end is taken already
    const lisp::Value longer = heap.append(one, one.asString()->view());
    EXPECT_EQ(base.asString()->view(), start + u"b");
    EXPECT_EQ(one.asString()->view(), start + u"b1");
    EXPECT_EQ(two.asString()->view(), start + u"b2");
    EXPECT_EQ(longer.asString()->view(), start + u"b1" + start + u"b1");
    EXPECT_EQ(base.asString()->buffer, one.asString()->buffer);
    EXPECT_NE(base.asString()->buffer, two.asString()->buffer);
}

TEST(Heap, garbageAloneNeverUsesUpTheMemory)
{
    lisp::Machine machine;
    machine.heap().setLimit(64 * 1024 * 1024);
    // 40 MB in use, and many times the rest in garbage
    EXPECT_EQ(evaluateText(machine, "(setq l nil) (repeat 2600000 (setq l (cons 1 l)))"
                                    "(repeat 10000000 (list 1)) (length l)"),
              "2600000");
}

TEST(Heap, aProgramThatCatchesOutOfMemoryGoesOn)
{
    lisp::Machine machine;
    machine.heap().setLimit(32 * 1024 * 1024);
    EXPECT_EQ(evaluateText(machine, "(defun fill (/ l) (while T (setq l (cons 1 l))))"
                                    "(repeat 5 (setq r (vl-catch-all-apply 'fill)))"
                                    "(setq l nil) (repeat 100000 (setq l (cons 1 l)))"
                                    "(list (length l) (vl-catch-all-error-message r))"),
              "(100000 \"out of memory\")");
}

TEST(Heap, sharesShortStringsUntilTheNextCollection)
{
    lisp::Machine machine;
    lisp::Heap &heap = machine.heap();
    const lisp::Value first = heap.sharedAsciiString("AcDbLine");
    EXPECT_EQ(heap.sharedAsciiString("AcDbLine"), first);
    EXPECT_NE(heap.sharedAsciiString("AcDbLin"), first);
    machine.collectGarbage();
    EXPECT_EQ(heap.sharedAsciiString("AcDbLine").asString()->view(), u"AcDbLine");
    const std::string longText(100, 'x');
    EXPECT_NE(heap.sharedAsciiString(longText), heap.sharedAsciiString(longText));
}
