;; Dimension styles, paragraphs, and windows of a layout.
(setvar "CMDECHO" 0)
(setvar "DIMASZ" 7.5)
(command "_.-dimstyle" "_s" "Big")
(setvar "DIMASZ" 1.0)
(command "_.-dimstyle" "_s" "Small" "_.-dimstyle" "_r" "Big")
(show '(list (getvar "DIMSTYLE") (getvar "DIMASZ")))
(command "_.dimlinear" '(0 0) '(50 0) '(25 10))
(show '(cdr (assoc 3 (entget (entlast)))))
(command "_.-dimstyle" "_?" "*")

(command "_.-mtext" '(0 100) "_j" "_tc" "_h" 4 '(60 80) "first line" "second line" "")
(show '(mapcar '(lambda (code) (cdr (assoc code (entget (entlast))))) '(1 10 40 41 71)))

(command "_.-osnap" "_end,_mid")
(show '(getvar "OSMODE"))

(setvar "CTAB" "Layout1")
(command "_.mview" '(10 10) '(210 110))
(show '(mapcar '(lambda (code) (cdr (assoc code (entget (entlast))))) '(0 10 40 41 69)))
(command "_.mspace")
(show '(getvar "CVPORT"))
