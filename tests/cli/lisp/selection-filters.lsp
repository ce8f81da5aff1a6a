;; What the filters of ssget see. names gives what a set holds by the layers, which are different.
(defun names (set / index result)
  (if set
    (repeat (setq index (sslength set))
      (setq result (cons (cdr (assoc 8 (entget (ssname set (setq index (1- index)))))) result)))))
(defun all (filter) (names (ssget "X" filter)))
(defun make (layer type groups)
  (entmakex (append (list (cons 0 type) (cons 8 layer)) groups)))

(make "plain" "TEXT" '((10 1 2 3) (40 . 2.5) (1 . "H")))
(make "turned" "TEXT" '((10 1 2 3) (40 . 2.5) (1 . "H") (50 . 0.5) (41 . 0.8) (72 . 1) (11 4 5 6)))
(entmake '((0 . "BLOCK") (2 . "door") (70 . 0) (10 0 0)))
(entmake '((0 . "POINT") (10 0 0)))
(entmake '((0 . "ENDBLK")))
(make "door" "INSERT" '((2 . "door") (10 0 0)))
(make "wide door" "INSERT" '((2 . "door") (10 0 0) (41 . 2.0)))
(make "line" "LWPOLYLINE" '((100 . "AcDbEntity") (100 . "AcDbPolyline") (90 . 2) (10 0 0) (42 . 1.0) (10 9 0)))
(make "ring" "LWPOLYLINE" '((100 . "AcDbEntity") (100 . "AcDbPolyline") (90 . 2) (70 . 1) (10 0 0) (42 . 1.0) (10 9 0) (42 . 1.0)))

(title "what entget shows, be it in the drawing or not")
(show-all '((all '((0 . "TEXT") (7 . "standard"))) (all '((0 . "TEXT") (41 . 1.0))) (all '((0 . "TEXT") (50 . 0.0)))
            (all '((0 . "TEXT") (72 . 0))) (all '((0 . "TEXT") (-4 . "/=") (72 . 0))) (all '((0 . "TEXT") (210 0.0 0.0 1.0)))
            (all '((0 . "INSERT") (41 . 1.0))) (all '((0 . "INSERT") (50 . 0.0))) (all '((0 . "LWPOLYLINE") (70 . 0)))
            (all '((0 . "LWPOLYLINE") (-4 . "&") (70 . 1))) (all '((42 . 0.0))) (all '((0 . "LWPOLYLINE") (40 . 0.0)))
            (all '((7 . "other"))) (all '((44 . 5.0)))))

(foreach place '((0 0 0) (5 5 5) (9 5 1) (5 9 5) (8 9 7))
  (make (strcat "at " (itoa (car place)) (itoa (cadr place)) (itoa (caddr place))) "POINT" (list (cons 10 place))))
(setq points '(0 . "POINT"))

(title "a relation for each coordinate")
(foreach relations '("<,<,*" "<=,<=,*" "<,<" ">,>" "*,*,>" "=,>" ">=,*,<" "<>,*" "*,!=,=" "/=,/=" "*,<=,>=" "<" "<=" ">" ">=" "="
                     "!=" "/=" "<>" "*")
  (show (list 'all (list 'list 'points (list 'quote (cons -4 relations)) ''(10 5.0 5.0 5.0)))))

(title "brackets in any case")
(show-all '((all (list points '(-4 . "<Or") '(-4 . "<,<,*") '(10 5.0 5.0 5.0) '(-4 . "*,>") '(10 5.0 5.0 5.0) '(-4 . "oR>")))
            (all (list points '(-4 . "<not") '(-4 . "<,<") '(10 5.0 5.0 5.0) '(-4 . "NOT>")))))

(title "what is neither bracket nor relation")
(foreach bad '("<FOO" "FOO>" "<,?" "<,,<" "<,<,")
  (show (list 'vl-catch-all-error-message (list 'vl-catch-all-apply ''all (list 'list (list 'quote (list (cons -4 bad) '(10 5 5 5))))))))

(title "layouts with a relation")
(show-all '((all '((0 . "INSERT") (-4 . "!=") (410 . "Model"))) (all '((0 . "INSERT") (-4 . "/=") (410 . "Layout1")))))
