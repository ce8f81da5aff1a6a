;;; What programs ask the host: colours, points, menus, the tablet, shapes and help.

(title "a colour by its number; Enter keeps the current one")
(show-all '((acad_truecolorcli 7) (acad_truecolorcli 7)))

(title "neither zero nor negative")
(show '(acad_truecolorcli 7))

(title "a true colour: three numbers, of which the low 8 bits count")
(show-all '((acad_truecolorcli 256) (acad_truecolorcli 1) (acad_truecolorcli 1)))

(title "more or less than three numbers")
(show-all '((acad_truecolorcli 1) (acad_truecolorcli 1)))

(title "Esc at either prompt")
(show-all '((acad_truecolorcli 1) (acad_truecolorcli 1)))

(title "a colour that is none")
(show-all '((acad_truecolorcli) (acad_truecolorcli "red") (acad_truecolorcli 40000)))

(title "a point, in several ways")
(show-all '((wexo_getpointEsc "\nPoint: ") (wexo_getpointEsc "\nPoint: ") (wexo_getpointEsc "\nPoint: ")))

(title "something else: a word, a number, Enter alone")
(show-all '((wexo_getpointEsc "\nPoint or [Undo]: ") (wexo_getpointEsc "\nPoint: ") (wexo_getpointEsc "\nPoint: ")))

(title "Esc")
(show '(wexo_getpointEsc "\nPoint: "))

(title "without a prompt nothing is asked")
(show-all '((wexo_getpointEsc) (wexo_getpointEsc 5)))

(title "what initget asked for before does not count")
(initget 1 "Undo")
(show '(wexo_getpointEsc "\nPoint: "))

(title "menu groups, of which none are loaded")
(show-all '((ismnugrploaded "CUSTOM") (ismnugrploaded) (ismnugrploaded 5)))

(title "the tablet")
(show-all '((tablet 0) (tablet 1 '(0 0) '(1 0) '(0 1)) (tablet "x") (tablet)))

(title "shapes are not compiled")
(show-all '((wexo_compileshp "a.shp") (wexo_compileshp "a.shp" "a.shx") (wexo_compileshp "a.shp" 5) (wexo_compileshp)))

(title "help: nil in every case")
(show-all '((acet-help) (acet-help 5) (acet-help "overview")))

(title "registered help")
(show-all '((acet-help-trap "CMD" "topic") (acet-help-trap "CMD") (acet-help-trap "CMD" "topic" "own.chm") (acet-help-trap)
            (acet-help-trap 5)))

(title "hyperlinks of any characters; an escape in a text of the drawing is the character that it stands for")
(setq point (entmakex '((0 . "POINT") (10 1 2))))
(show-all '((geturl point) (seturl point "https://пример.example/Ж/€/😀") (geturl point) (seturl point "a\\U+0041b")
            (geturl point) (seturl point "\\u+0041\\U+04") (geturl point)))

(title "and what cannot have one")
(show-all '((entdel point) (seturl point "x") (geturl point) (seturl point) (seturl "x" "y") (geturl) (geturl 5)))
