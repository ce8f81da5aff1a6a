;; Commands that change objects where others cross them, areas, and dimensions.
(setvar "CMDECHO" 0)
(command "_.zoom" "_w" '(-50 -50) '(50 50))

(command "_.line" '(5 -5) '(5 5) "")
(setq edge (entlast))
(command "_.line" '(0 0) '(10 0) "")
(setq across (entlast))
(command "_.trim" edge "" (list across '(8 0)) "")
(show '(cdr (assoc 11 (entget across))))
(command "_.extend" edge "" (list across '(4 0)) "")
(show '(cdr (assoc 11 (entget across))))
(setvar "FILLETRAD" 1.0)
(command "_.fillet" (list across '(1 0)) (list edge '(5 4)))
(show '(cdr (assoc 0 (entget (entlast)))))
(show '(cdr (assoc 11 (entget across))))
(command "_.array" (entlast) "" "_r" 2 3 20 10)
(show '(sslength (ssget "_X" '((0 . "ARC")))))

(command "_.erase" "_all" "")
(command "_.rectang" '(-20 -20) '(20 20))
(command "_.circle" '(5 5) 3)
(command "_.-bhatch" "_p" "ansi31" 1 0 '(-10 -10) "")
(show '(list (cdr (assoc 2 (entget (entlast)))) (cdr (assoc 91 (entget (entlast))))))
(command "_.-boundary" '(-10 -10) "")
(show '(sslength (ssget "_X" '((0 . "LWPOLYLINE")))))
(command "_.dimlinear" '(-20 -20) '(20 -20) '(0 -30))
(show '(cdr (assoc 42 (entget (entlast)))))
(command "_.dim1" "_ver" '(20 -20) '(20 20) '(30 0) "<> high")
(show '(cdr (assoc 1 (entget (entlast)))))

(command "_.view" "_s" "all" "_.zoom" "_c" '(0 0) 1 "_.view" "_r" "all")
(show '(getvar "VIEWSIZE"))
(command "_.pselect" (entlast) "" "_.erase")
(show '(sslength (ssget "_X" '((0 . "DIMENSION")))))


;; Lines and arcs go on from what was drawn last; a circle may touch two objects.
(command "_.erase" "_all" "" "_.line" '(0 0) '(10 0) "" "_.arc" "" '(10 4) "_.line" "" 10 "")
(show '(mapcar '(lambda (code) (cdr (assoc code (entget (entlast))))) '(0 10 11)))
(command "_.circle" "_ttr" '(7 0) '(12 2) 1)
(show '(mapcar '(lambda (code) (cdr (assoc code (entget (entlast))))) '(0 10 40)))

;; What is beyond the limits of a question is refused, and what comes behind it is the answer.
(setvar "CMDECHO" 1)
(command "_.circle" '(20 20) -1 0 2)
(command "_.scale" (entlast) "" '(20 20) 0 3)
(show '(cdr (assoc 40 (entget (entlast)))))
(command "_.polygon" 2 3 '(20 20) "_i" 5)
