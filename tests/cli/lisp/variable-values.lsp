; What variables can be: numbers in their ranges, and names that the drawing has, in its spelling.
(defun try (name value)
  (princ (strcat "\n" name " "))
  (prin1 value)
  (setq result (vl-catch-all-apply 'setvar (list name value)))
  (princ (if (vl-catch-all-error-p result) " refused: " " taken: "))
  (prin1 (getvar name))
  (princ))

(defun try-all (rows)
  (foreach row rows (foreach value (cdr row) (try (car row) value))))

(entmake '((0 . "LAYER") (2 . "Walls") (70 . 0)))
(entmake '((0 . "LAYER") (2 . "Cold") (70 . 1)))
(entmake '((0 . "STYLE") (2 . "Thin") (70 . 0)))

(title "reals")
(try-all '(("LTSCALE" 0 -1.0 0.5) ("TEXTSIZE" 0.0 3) ("DIMTXT" 0 2.5) ("DIMSCALE" -1 0) ("FILLETRAD" -0.1 0.0)
           ("HPSCALE" 0 2) ("HPGAPTOL" 5001 5000) ("OFFSETDIST" -1.0 0) ("PDSIZE" -5 "x") ("USERR1" -1e300)))
(try "USERR1" (* 1e300 1e300))

(title "integers")
(try-all '(("CELWEIGHT" 24 25 212 -4 -3) ("LWDEFAULT" -1 30) ("PDMODE" 5 35 128) ("LUNITS" 0 6 2) ("USERI1" 32768 -32768)))

(title "points")
(try-all '(("SNAPUNIT" (0 1) (0.5 0.25)) ("GRIDUNIT" (-1 1) (0 0)) ("SNAPBASE" (-3 4))))

(title "names")
(try-all '(("CLAYER" "nix" "WALLS" "cold" "" "0") ("CELTYPE" "DASHED" "BYBLOCK" "continuous" "bylayer")
           ("TEXTSTYLE" "nix" "THIN" "standard") ("DIMTXSTY" "nix" "thin") ("CTAB" "nix" "LAYOUT1" "model")
           ("CECOLOR" "reddish" "red" "256" "300" "rgb:10,20,30" "ByLayer") ("HPCOLOR" "reddish" "3" ".")
           ("DIMBLK" "nix" "ARCHTICK" "_dot" ".") ("CTABLESTYLE" "nix" "STANDARD") ("DIMSTYLE" "Standard")))

(title "what is refused says so and changes nothing")
(show '(vl-catch-all-error-message (vl-catch-all-apply 'setvar '("CLAYER" "nix"))))
(show '(vl-catch-all-error-message (vl-catch-all-apply 'setvar '("TEXTSIZE" 0))))
(command "_.setvar" "CLAYER" "nix")
(command "_.ltscale" "-2")
(show '(list (getvar "CLAYER") (getvar "TEXTSIZE") (getvar "LTSCALE")))

(title "the drawing's corners are those of what it holds")
(show '(list (getvar "EXTMIN") (getvar "EXTMAX")))
(entmake '((0 . "LINE") (10 1 2 3) (11 4 5 6)))
(show '(list (getvar "EXTMIN") (getvar "EXTMAX")))
