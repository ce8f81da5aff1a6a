// What it costs a program to read and change an entity, compared with building a list of the same groups in LISP. Each
// iteration is 1000 calls.

#include "benchmarks/Workplace.h"

namespace {

constexpr const char16_t *Preparation = uR"(
(setq new-line '((0 . "LINE") (8 . "Walls") (62 . 3) (10 12.5 -7.25 0.0) (11 1234.567891 98.765432 0.0)))
(setq line (entmakex new-line))
(setq data (entget line))
(setq owner (cdr (assoc 330 data)))
(setq handle (cdr (assoc 5 data)))
(repeat 1000 (setq lines (cons (entmakex new-line) lines)))
(setq rest lines)
(defun next-line () (car (setq rest (cdr (if (cdr rest) rest lines)))))
(defun build ()
  (list (cons -1 line) (cons 0 "LINE") (cons 330 owner) (cons 5 handle) (cons 100 "AcDbEntity") (cons 67 0)
        (cons 410 "Model") (cons 8 "Walls") (cons 62 3) (cons 100 "AcDbLine") (cons 10 (list 12.5 -7.25 0.0))
        (cons 11 (list 1234.567891 98.765432 0.0)) (cons 210 (list 0.0 0.0 1.0))))
)";

// More than caches have room for at once.
constexpr const char16_t *ManyLines = uR"(
(repeat 9000 (setq lines (cons (entmakex new-line) lines)))
(setq rest lines)
)";

void work(benchmark::State &state, const char16_t *call)
{
    Workplace workplace;
    workplace.load(Preparation);
    workplace.run(state, call);
}

void workOnMany(benchmark::State &state, const char16_t *call)
{
    Workplace workplace;
    workplace.load(Preparation);
    workplace.load(ManyLines);
    workplace.run(state, call);
}

void buildsTheSameList(benchmark::State &state)
{
    Workplace workplace;
    workplace.load(Preparation);
    workplace.load(u"(setq same (equal (build) (entget line)))");
    if (workplace.machine().intern(u"same")->value.isNil())
        state.SkipWithError("entget gives another list");
    workplace.run(state, u"(build)");
}

} // namespace

BENCHMARK(buildsTheSameList);
BENCHMARK_CAPTURE(work, entget, u"(entget line)");
BENCHMARK_CAPTURE(work, entgetOfAnotherLine, u"(entget (next-line))");
BENCHMARK_CAPTURE(work, entmodUnchanged, u"(entmod data)");
BENCHMARK_CAPTURE(work, entmod,
                  u"(entmod (setq data (subst (cons 10 (list (1+ (cadr (assoc 10 data))) 0.0 0.0))"
                  u" (assoc 10 data) data)))");
BENCHMARK_CAPTURE(work, substitution,
                  u"(setq data (subst (cons 10 (list (1+ (cadr (assoc 10 data))) 0.0 0.0)) (assoc 10 data) data))");
BENCHMARK_CAPTURE(work, extents, u"(acet-ent-geomextents line)");
BENCHMARK_CAPTURE(work, extentsOfAnotherLine, u"(acet-ent-geomextents (next-line))");
BENCHMARK_CAPTURE(work, anotherLine, u"(next-line)");
BENCHMARK_CAPTURE(workOnMany, extents, u"(acet-ent-geomextents (next-line))");
BENCHMARK_CAPTURE(workOnMany, anotherLine, u"(next-line)");
// Each change lets the host forget all boxes.
BENCHMARK_CAPTURE(workOnMany, entmodAndExtents,
                  u"(entmod (setq data (subst (cons 10 (list (1+ (cadr (assoc 10 data))) 0.0 0.0))"
                  u" (assoc 10 data) data))) (acet-ent-geomextents (next-line))");
BENCHMARK_CAPTURE(workOnMany, entmodAndEntget,
                  u"(entmod (setq data (subst (cons 10 (list (1+ (cadr (assoc 10 data))) 0.0 0.0))"
                  u" (assoc 10 data) data))) (entget (next-line))");
BENCHMARK_CAPTURE(workOnMany, entmod,
                  u"(entmod (setq data (subst (cons 10 (list (1+ (cadr (assoc 10 data))) 0.0 0.0))"
                  u" (assoc 10 data) data))) (next-line)");
BENCHMARK_CAPTURE(work, version, u"(acet-util-ver)");
