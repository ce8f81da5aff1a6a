;; Dimensions that a program makes and changes by their lists have a picture, as those of commands.
(setvar "CMDECHO" 0)

(defun value (code entity) (cdr (assoc code (entget entity))))

(defun shown (dimension / part text)
  (setq part (tblobjname "BLOCK" (value 2 dimension)))
  (while (setq part (entnext part))
    (if (= (value 0 part) "TEXT") (setq text part)))
  (list (value 1 text) (value 40 text)))

(defun change (dimension code new / data)
  (setq data (entget dimension))
  (entmod (subst (cons code new) (assoc code data) data)))

(setq length-of-line
       '((0 . "DIMENSION") (100 . "AcDbEntity") (8 . "Dimensions") (100 . "AcDbDimension") (10 60.0 20.0 0.0)
         (70 . 0) (1 . "") (3 . "Standard") (100 . "AcDbAlignedDimension") (13 0.0 0.0 0.0) (14 60.0 0.0 0.0)
         (100 . "AcDbRotatedDimension")))

(title "Made")
(setq dimension (entmakex length-of-line))
(show-all '((value 2 dimension) (value 70 dimension) (value 42 dimension) (value 11 dimension) (shown dimension)))
(show '(acet-ent-geomextents dimension))

(title "Changed, and undone")
(command "_.undo" "_mark")
(change dimension 14 '(72.5 0.0 0.0))
(show-all '((value 42 dimension) (shown dimension)))
(change dimension 1 "<> mm")
(show '(shown dimension))
(show '(acet-ent-geomextents dimension))
(command "_.undo" "_back")
(show-all '((value 42 dimension) (shown dimension)))

(title "Drawn by its style, and by values of its own")
(entmake '((0 . "DIMSTYLE") (2 . "Large") (70 . 0) (40 . 2.0) (140 . 5.0) (271 . 1)))
(change dimension 3 "Large")
(show '(shown dimension))
(entmod (list (cons -1 dimension)
              '(-3 ("ACAD" (1000 . "DSTYLE") (1002 . "{") (1070 . 144) (1040 . 0.1) (1070 . 271) (1070 . 3) (1002 . "}")))))
(show '(shown dimension))
