;;; Selection sets. names gives what a set holds by the layers, which are different.

(setvar "CMDECHO" 0)
(defun names (set / index result)
  (if set
    (repeat (setq index (sslength set))
      (setq result (cons (cdr (assoc 8 (entget (ssname set (setq index (1- index)))))) result)))))
(defun make (layer type groups)
  (entmakex (append (list (cons 0 type) (cons 8 layer)) groups)))

(setq low    (make "low" "LINE" '((10 0 0) (11 10 0) (62 . 1)))
      across (make "across" "LINE" '((10 -5 -5) (11 20 20)))
      round  (make "round" "CIRCLE" '((10 5 5) (40 . 2.0) (62 . 5)))
      far    (make "far" "CIRCLE" '((10 50 50) (40 . 1.0)))
      word   (make "word" "TEXT" '((10 30 30) (40 . 2.0) (1 . "Door 17"))))

(title "everything, the newest first")
(show-all '((names (ssget "X")) (names (ssget "_x")) (names (ssget "A")) (sslength (ssget "X"))))

(title "by type, layer, colour")
(show-all '((names (ssget "X" '((0 . "LINE")))) (names (ssget "X" '((0 . "line,CIRCLE") (8 . "~far"))))
            (names (ssget "X" '((62 . 1)))) (names (ssget "X" '((62 . 256)))) (ssget "X" '((0 . "ARC")))
            (names (ssget "X" '((1 . "Door*")))) (ssget "X" '((1 . "door*"))) (names (ssget "X" '((410 . "model") (0 . "TEXT"))))
            (names (ssget "X" '((67 . 0) (40 . 2.0))))))

(regapp "acme")
(entmod (list (cons -1 far) '(-3 ("acme" (1000 . "x")))))
(show-all '((names (ssget "X" '((-3 ("acme"))))) (ssget "X" '((-3 ("other*"))))))

(title "operators")
(show-all '((names (ssget "X" '((-4 . "<OR") (8 . "low") (8 . "far") (-4 . "OR>"))))
            (names (ssget "X" '((-4 . "<not") (0 . "LINE") (-4 . "not>"))))
            (names (ssget "X" '((-4 . "<XOR") (0 . "CIRCLE") (62 . 5) (-4 . "XOR>"))))
            (names (ssget "X" '((-4 . "<AND") (0 . "CIRCLE") (-4 . "<OR") (62 . 5) (62 . 6) (-4 . "OR>") (-4 . "AND>"))))
            (names (ssget "X" '((0 . "CIRCLE") (-4 . "<=") (40 . 1.0))))
            (names (ssget "X" '((-4 . "!=") (8 . "low,far") (0 . "LINE,CIRCLE"))))
            (names (ssget "X" '((-4 . ">=,>=,*") (10 30 30 0))))
            (names (ssget "X" '((10 5 5 0))))
            (names (ssget "X" '((-4 . "&") (62 . 4))))))

(title "what is no filter is refused")
(foreach bad '(((-4 . "<OR") (8 . "a")) ((8 . "a") (-4 . "OR>")) ((-4 . "<XOR") (8 . "a") (-4 . "XOR>"))
               ((-4 . "<AND") (8 . "a") (-4 . "OR>")) ((-4 . ">")) ((-4 . "?") (40 . 1.0)) (5) ((8 . 5)) ((-3)))
  (show (list 'vl-catch-all-error-message (list 'vl-catch-all-apply ''ssget (list 'quote (list "X" bad))))))
(show-all '((vl-catch-all-error-message (vl-catch-all-apply 'ssget '("Q")))
            (vl-catch-all-error-message (vl-catch-all-apply 'ssget '("W" (0 0))))))

(title "windows take what lies inside, crossing ones what they touch")
(show-all '((names (ssget "W" '(-1 -1) '(12 12))) (names (ssget "C" '(-1 -1) '(12 12))) (names (ssget "W" '(12 12) '(-1 -1)))
            (ssget "C" '(4.6 4.7) '(4.65 5)) (names (ssget "C" '(2 4) '(3.1 6)))
            (names (ssget "WP" '((-1 -1) (12 -1) (-1 12)))) (names (ssget "CP" '((-1 -1) (12 -1) (-1 12))))
            (names (ssget "F" '((5 -1) (5 4)))) (names (ssget "C" '(30 30) '(31 31) '((0 . "TEXT"))))))

(title "the last, the previous, what lies under a point")
(show-all '((names (ssget "L")) (names (ssget "P")) (names (ssget '(5 0))) (names (ssget "P")) (ssget '(100 100))))

(title "all is what is not frozen, be it off, for programs and at the prompt; locked ones can be refused")
(command "_.layer" "_freeze" "low" "_off" "far" "_lock" "round" "")
(show-all '((names (ssget "A")) (names (ssget "X")) (names (ssget "A:L")) (names (ssget "C" '(-9 -9) '(99 99)))
            (progn (command "_.select" "_all" "") (names (ssget "P")))))

(title "sets are changed one entity after the other")
(show-all '((sslength (setq set (ssadd))) (eq (ssadd low set) set) (sslength (ssadd low set)) (ssmemb low set) (ssmemb far set)
            (ssdel far set) (sslength (ssadd far set)) (names (ssdel low set)) (ssname set 0) (ssname set 1) (ssname set -1)
            (type set) (sslength (ssadd low)) (ssnamex set)))

(title "commands take what is selected before")
(setvar "PICKFIRST" 1)
(show-all '((eq (cadr (sssetfirst nil set)) set) (names (cadr (ssgetfirst))) (progn (command "_.erase" "") (entget far)) (cadr (ssgetfirst))))

(title "a person selects")
(show-all '((names (ssget)) (names (ssget '((0 . "LINE")))) (entsel) (cadr (entsel "\nWhich? ")) (entsel)))

(title "also while a command waits for a point, which it gets afterwards; Esc ends the program alone")
(command "_.line" "0,0")
(show-all '((names (ssget)) (getvar "CMDNAMES") (vl-catch-all-error-message (vl-catch-all-apply 'ssget '()))
            (getvar "CMDNAMES") (command "40,0" "") (cdr (assoc 11 (entget (entlast))))))

(title "how they were selected: the corners of windows stand behind all")
(show-all '((ssnamex (ssget "C" '(14 14) '(16 16))) (ssnamex (ssget '(15 15))) (ssnamex (ssget "F" '((14 15) (16 15))))))
