;; The coordinate system and what is seen of it.
(setvar "CMDECHO" 0)
(defun rounded (numbers) (mapcar '(lambda (n) (/ (fix (+ (* n 1000) (if (minusp n) -0.5 0.5))) 1000.0)) numbers))
(command "_.line" '(0 0) '(0 160) "")
(command "_.line" '(0 0) '(-50 0) "")

;; The plan of a system that is turned by a quarter: its x axis goes to the right.
(command "_.ucs" "_z" 90)
(command "_.ucs" "_s" "Turned")
(command "_.plan" "")
(show '(rounded (getvar "VIEWDIR")))
(show '(rounded (list (getvar "VIEWTWIST") (getvar "VIEWSIZE"))))
(show '(rounded (getvar "VIEWCTR")))
(show '(rounded (trans '(1 0 0) 2 0 t)))

;; What is seen stays when the system changes.
(command "_.ucs" "_w")
(show '(rounded (getvar "VIEWCTR")))
(show '(rounded (trans '(1 0 0) 2 0 t)))

;; The world's plan, and that of a system with a name.
(command "_.plan" "_w")
(show '(list (getvar "VIEWTWIST") (rounded (trans '(1 0 0) 2 0 t))))
(command "_.plan" "_u" "turned")
(show '(rounded (list (getvar "VIEWTWIST"))))
(command "_.plan" "_u" "none")

;; UCSFOLLOW shows the plan of each new system.
(setvar "UCSFOLLOW" 1)
(command "_.ucs" "_x" 90)
(show '(rounded (trans '(0 0 1) 2 0 t)))
(show '(rounded (getvar "VIEWDIR")))
(setvar "UCSFOLLOW" 0)
(command "_.ucs" "_w")
(show '(rounded (getvar "VIEWDIR")))

;; The system of an object, and a view with a name.
(command "_.ucs" "_e" (entlast))
(show '(rounded (getvar "UCSXDIR")))
(command "_.ucs" "_w")
(command "_.view" "_s" "front")
(command "_.plan" "_w")
(command "_.view" "_r" "front")
(show '(rounded (getvar "VIEWDIR")))

;; Undo brings back the system before, and what is drawn in one is undone in it.
(command "_.ucs" "_o" '(10 20))
(command "_.line" '(0 0) '(1 1) "")
(command "_.u")
(show '(list (getvar "UCSORG") (getvar "WORLDUCS")))
(command "_.u")
(show '(list (getvar "UCSORG") (getvar "WORLDUCS")))
