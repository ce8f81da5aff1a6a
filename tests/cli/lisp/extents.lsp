; The boxes of entities, as programs see them.
(defun box (data) (acet-ent-geomextents (entmakex data)))
(defun shown (title value) (princ (strcat title ": ")) (prin1 value) (terpri))

(shown "line with thickness" (box '((0 . "LINE") (10 1.0 2.0 3.0) (11 4.0 0.0 3.0) (39 . 2.0))))
(shown "circle" (box '((0 . "CIRCLE") (10 5.0 5.0 0.0) (40 . 2.5))))
(shown "point" (box '((0 . "POINT") (10 1.5 2.5 3.5))))
(shown "solid seen from behind" (box '((0 . "SOLID") (10 0.0 0.0 1.0) (11 4.0 0.0 1.0) (12 0.0 2.0 1.0) (13 4.0 2.0 1.0)
                                       (210 0.0 0.0 -1.0))))
(shown "wide polyline" (box '((0 . "LWPOLYLINE") (100 . "AcDbEntity") (100 . "AcDbPolyline") (90 . 2) (70 . 0) (43 . 2.0)
                              (10 0.0 0.0) (10 8.0 0.0))))
(shown "bulge" (box '((0 . "LWPOLYLINE") (100 . "AcDbEntity") (100 . "AcDbPolyline") (90 . 2) (70 . 0)
                      (10 0.0 0.0) (42 . 1.0) (10 4.0 0.0))))
(shown "ray" (box '((0 . "RAY") (100 . "AcDbEntity") (100 . "AcDbRay") (10 0.0 0.0 0.0) (11 1.0 0.0 0.0))))

(entmake '((0 . "BLOCK") (2 . "PART") (70 . 0) (10 0.0 0.0 0.0)))
(entmake '((0 . "LINE") (10 0.0 0.0 0.0) (11 1.0 1.0 0.0)))
(entmake '((0 . "ENDBLK")))
(shown "array of inserts" (box '((0 . "INSERT") (2 . "PART") (10 10.0 10.0 0.0) (41 . 2.0) (42 . 3.0) (70 . 3) (71 . 2)
                                 (44 . 4.0) (45 . 5.0))))

; It follows changes, and undone ones.
(setq line (entmakex '((0 . "LINE") (10 0.0 0.0 0.0) (11 1.0 1.0 0.0))))
(entmod (list (cons -1 line) '(0 . "LINE") '(10 0.0 0.0 0.0) '(11 9.0 1.0 0.0)))
(shown "changed" (acet-ent-geomextents line))
(entdel line)
(shown "erased" (acet-ent-geomextents line))
