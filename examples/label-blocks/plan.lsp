;;; Draws a small plan into an empty drawing: a room, and blocks to work on.

(setvar "CMDECHO" 0)

(defun line (from to)
  (entmake (list '(0 . "LINE") (cons 10 from) (cons 11 to))))

(defun rectangle (left bottom right top)
  (line (list left bottom) (list right bottom))
  (line (list right bottom) (list right top))
  (line (list right top) (list left top))
  (line (list left top) (list left bottom)))

(defun block (name parts)
  (entmake (list '(0 . "BLOCK") (cons 2 name) '(10 0 0 0) '(70 . 0)))
  (foreach part parts (apply (car part) (cdr part)))
  (entmake '((0 . "ENDBLK"))))

(defun insert (name place)
  (entmake (list '(0 . "INSERT") (cons 2 name) (cons 10 place))))

(block "DESK" '((rectangle -8 -4 8 4) (rectangle -2 1 2 3)))
(block "CHAIR" '((rectangle -3 -3 3 3) (line (-3 2) (3 2))))

(rectangle 0 0 100 70)
(insert "DESK" '(30 50 0))
(insert "DESK" '(70 50 0))
(insert "CHAIR" '(30 20 0))
(insert "CHAIR" '(70 20 0))
(command "_.ZOOM" "_Extents")
(princ)
