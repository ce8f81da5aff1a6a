;; Commands of the command line, sent by a program.

(show '(command "_.line" "0,0" "10,0" "@0,5" "_c"))
(show '(cdr (assoc 0 (entget (entlast)))))
(show '(list (cdr (assoc 10 (entget (entlast)))) (cdr (assoc 11 (entget (entlast))))))

;; Prompts are shown unless CMDECHO is 0.
(setvar "CMDECHO" 0)

;; A command that is not finished goes on with the next call.
(command "_.pline" "0,0")
(show '(getvar "CMDACTIVE"))
(show '(getvar "CMDNAMES"))
(command "10,0" "_a" "10,10")
(show '(getvar "LASTPROMPT"))
(command "_cl")
(show '(getvar "CMDACTIVE"))
(show '(cdr (assoc 90 (entget (entlast)))))

;; PAUSE asks the person at the command line.
(command "_.circle" PAUSE PAUSE)
(show '(cdr (assoc 40 (entget (entlast)))))

;; Layers, properties, and a group that one U takes back.
(command "_.-layer" "_m" "Walls" "_c" "1" "" "")
(show '(getvar "CLAYER"))
(show '(cdr (assoc 62 (tblsearch "LAYER" "Walls"))))
(command "_.undo" "_be")
(command "_.text" "_j" "_mc" '(5 5) 2.5 0 "Room 1")
(command "_.copy" (entlast) "" '(0 0) '(0 10))
(command "_.chprop" (entlast) "" "_c" "_bylayer" "_la" "0" "")
(command "_.undo" "_e")
(show '(cdr (assoc 11 (entget (entlast)))))
(show '(cdr (assoc 8 (entget (entlast)))))
(command "_.u")
(show '(cdr (assoc 0 (entget (entlast)))))

;; Blocks.
(command "_.-block" "Ring" '(0 0) (entlast) "")
(command "_.-insert" "Ring" '(50 50) 2 "" 45)
(show '(cdr (assoc 2 (entget (entlast)))))
(command "_.explode" (entlast))
(show '(cdr (assoc 0 (entget (entlast)))))

(command "_.area" "0,0" "4,0" "4,3" "")
(show '(list (getvar "AREA") (getvar "PERIMETER")))
(command "_.zoom" "_w" '(0 0) '(160 100))
(show '(list (getvar "VIEWCTR") (getvar "VIEWSIZE")))

;; What is not there is said, and the rest of the arguments is dropped.
(show '(vl-cmdf "_.nosuchcommand" "_.erase" "_all" ""))
(show '(vl-catch-all-error-message (vl-catch-all-apply 'command-s '("_.circle" (0 0)))))

;; Esc at a pause ends the program's command.
(show '(vl-catch-all-error-message (vl-catch-all-apply 'command (list "_.line" '(0 0) PAUSE))))
(show '(getvar "CMDACTIVE"))

;; A function of the module that sends commands itself: nothing is selected behind it, and nothing was added.
(command "_.select" (entlast) "")
(setvar "PICKFIRST" 0)
(setq before (entlast))
(acet-ss-clear-prev)
(show '(equal before (entlast)))
(show '(getvar "PICKFIRST"))
(show '(getvar "CMDACTIVE"))
(setvar "CMDECHO" 1)
(command "_.select" "_p" "")

;; Objects that a program gives have no text; the command says how many it found.
(setvar "CMDECHO" 1)
(command "_.point" "70,70")
(command "_.erase" (entlast) "")
