;; Where entmake puts an entity: into the layout that it names, or the space. entmod leaves it there.
(setvar "CMDECHO" 0)
(command "_.layout" "_new" "S2")
(defun line (groups) (entmakex (append '((0 . "LINE")) groups '((10 0 0) (11 1 1)))))
(defun place (entity) (if entity (list (cdr (assoc 67 (entget entity))) (cdr (assoc 410 (entget entity))))))
(defun with (entity group) (subst group (assoc (car group) (entget entity)) (entget entity)))

(title "the layout goes before the space, the space before the current one")
(show-all '((place (setq inside (line nil))) (place (line '((67 . 1)))) (place (setq second (line '((67 . 1) (410 . "S2")))))
            (place (line '((410 . "s2")))) (place (line '((67 . 1) (410 . "Model")))) (place (line '((410 . "Layout1"))))
            (mapcar '(lambda (layout) (sslength (ssget "X" (list (cons 410 layout))))) (layoutlist))
            (eq (cdr (assoc 330 (entget second))) (cdr (assoc 330 (entget inside))))))

(title "no layout, no entity")
(show-all '((line '((410 . "none"))) (line '((67 . 1) (410 . "none"))) (entmake '((0 . "POLYLINE") (410 . "none") (66 . 1)))))

(title "a whole goes there with its parts")
(show-all '((null (entmake '((0 . "POLYLINE") (410 . "S2") (66 . 1)))) (null (entmake '((0 . "VERTEX") (10 1 1))))
            (place (setq polyline (entmakex '((0 . "SEQEND"))))) (place (entnext polyline))))

(title "no change moves it alone")
(show-all '((entmod (with inside '(410 . "Layout1"))) (entmod (with inside '(67 . 1))) (entmod (list (cons -1 second) '(410 . "Model")))
            (entmod (list (cons -1 second) '(67 . 0))) (place inside) (place second)
            (null (entmod (append (with inside '(410 . "MODEL")) '((62 . 1))))) (cdr (assoc 62 (entget inside)))))

(title "what is in a block's definition goes with the block")
(show-all '((null (entmake '((0 . "BLOCK") (2 . "B") (70 . 0) (10 0 0)))) (null (entmake '((0 . "POINT") (410 . "none") (10 0 0))))
            (entmake '((0 . "ENDBLK"))) (cdr (assoc 0 (entget (cdr (assoc -2 (tblsearch "BLOCK" "B"))))))))

(title "it is there when the layout is shown")
(show-all '((setvar "CTAB" "S2") (place second) (sslength (ssget "X" '((410 . "S2"))))))
