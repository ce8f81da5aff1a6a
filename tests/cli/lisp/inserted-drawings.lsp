;; Drawings that are inserted as blocks, saved and opened.
(setvar "CMDECHO" 0)
(defun objects (name / entity types)
  (setq entity (cdr (assoc -2 (tblsearch "BLOCK" name))))
  (while entity
    (setq types (cons (cdr (assoc 0 (entget entity))) types) entity (entnext entity)))
  (reverse types))
(command "_.-layer" "_m" "Walls" "_c" 3 "" "")
(command "_.line" '(0 0) '(4 0) "" "_.circle" '(2 0) 1)
(command "_.-wblock" "part" "" '(0 0) "_all" "")

(command "_.-layer" "_s" "0" "" "_.-purge" "_la" "Walls" "_n")
(show '(tblsearch "LAYER" "Walls"))
(command "_.-insert" "part" '(10 10) 1 1 0)
(show '(objects "part"))
(show '(cdr (assoc 62 (tblsearch "LAYER" "Walls"))))
(show '(cdr (assoc 2 (entget (entlast)))))

;; Another name; a definition that is there is replaced when that is confirmed.
(command "_.-insert" "door=part.dxf" '(0 0) 1 1 0)
(show '(objects "door"))
(command "_.point" '(0 0))
(command "_.-wblock" "part" "_y" "" '(0 0) (entlast) "")
(command "_.-insert" "door=part" "_n" nil)
(show '(objects "door"))
(setvar "CMDECHO" 1)
(command "_.-insert" "door=part" "_y" nil)
(setvar "CMDECHO" 0)
(show '(objects "door"))
(command "_.u")
(show '(objects "door"))

;; The objects themselves.
(command "_.-insert" "*new=part" '(7 7) 1 0)
(show '(list (cdr (assoc 0 (entget (entlast)))) (cdr (assoc 10 (entget (entlast)))) (tblsearch "BLOCK" "new")))

;; What is not there, or no drawing.
(command "_.-insert" "no/such.dxf")
(command "_.-insert" "door=nothing")
(setq file (open "bad.dxf" "w"))
(write-line "no drawing" file)
(close file)
(command "_.-insert" "bad")

;; Changes are lost only when that is confirmed.
(command "_.open" "_n")
(show '(> (getvar "DBMOD") 0))
(command "_.open" "_y" "part.dxf")
(show '(list (getvar "DBMOD") (cdr (assoc 0 (entget (entlast))))))
(command "_.open" "part.dxf")
(show '(getvar "DWGNAME"))
