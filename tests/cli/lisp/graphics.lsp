;;; What programs draw over a picture, which headless is nowhere, and what grread reads from the answers.

(title "drawn lines and texts leave nothing behind")
(show '(grdraw '(0 0) '(10 10) 1))
(show '(grvecs '(1 (0 0) (1 1) -3 (2 2) (3 3)) '((1 0 0 5) (0 1 0 5) (0 0 1 0) (0 0 0 1))))
(show '(grtext -1 "working"))
(show '(redraw))
(setq line (entmakex '((0 . "LINE") (10 0 0) (11 10 0))))
(show '(redraw line 3))
(show '(entnext line))

(title "a typed point is a click, a move counts where it is asked for")
(show '(grread))
(show '(grread T))
(show '(grread))

(title "a single character is a key, longer text its characters and Enter")
(show '(grread))
(show '(list (grread) (grread) (grread)))
(show '(grread))

(title "wrong arguments")
(defun message (error) (if (vl-catch-all-error-p error) (vl-catch-all-error-message error) error))
(show '(message (vl-catch-all-apply 'grdraw '((0 0) nil 1))))
(show '(message (vl-catch-all-apply 'grvecs '((1 (0 0))))))
(show '(message (vl-catch-all-apply 'grvecs '((1 (0 0) (1 1)) ((1 0 0))))))
(show '(message (vl-catch-all-apply 'grread nil)))
