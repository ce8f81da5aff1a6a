;;; A selection turned with the cursor: what acet-ss-drag-rotate gives for a pick, a word and Esc.

(setvar "CMDECHO" 0)
(setq line (entmakex '((0 . "LINE") (10 0 0) (11 10 0))) set (ssadd line))

(title "without a base point the angle is measured from the origin on the first call")
(show '(acet-ss-drag-rotate set))

(title "with a base point and a prompt")
(show '(acet-ss-drag-rotate set '(1.0 1.0) "\nNew angle: "))

(title "then from the base point of the previous call")
(show '(acet-ss-drag-rotate set))

(title "typed words, Enter, Esc")
(show '(acet-ss-drag-rotate set '(0.0 0.0 0.0) "\nAngle or [Reference]: "))
(show '(acet-ss-drag-rotate set))
(show '(acet-ss-drag-rotate set))

(title "a prompt of the wrong type")
(show '(acet-ss-drag-rotate set '(0.0 0.0) 5))

(title "the drawing stays as it is until the program turns it")
(show '(mapcar 'rtos (cdr (assoc 11 (entget line)))))
(command "_.ROTATE" set "" '(0 0) (angtos (acet-ss-drag-rotate set '(0.0 0.0)) 0 8))
(show '(mapcar 'rtos (cdr (assoc 11 (entget line)))))
