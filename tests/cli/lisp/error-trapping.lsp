(title "before any attempt there is no failure")
(show '(vl_catch_all_error_p))

(title "the text is evaluated where the call stands")
(setq counter 1)
(vl_catch_all_apply "(setq counter (1+ counter))")
(show-all '(counter
            (vl_catch_all_error_p)))
(defun count-here (/ counter)
  (setq counter 10)
  (vl_catch_all_apply "(setq counter (1+ counter))")
  counter)
(show-all '((count-here)
            counter))

(title "a failure is remembered, and does not stop the program")
(vl_catch_all_apply "(/ 1 0)")
(show-all '((vl_catch_all_error_p)
            (vl_catch_all_error_p 1 2 3)))

(title "a refused argument leaves it remembered")
(vl_catch_all_apply)
(show '(vl_catch_all_error_p))
(vl_catch_all_apply 5)
(show '(vl_catch_all_error_p))

(title "a success clears it")
(vl_catch_all_apply "(+ 1 2)" "ignored" 5)
(show '(vl_catch_all_error_p))

(title "failures of every kind")
(foreach text '("(car 1)" "(no-such-function)" "(open-parenthesis" "(exit)")
  (vl_catch_all_apply text)
  (show (list 'list text (vl_catch_all_error_p)))
  (vl_catch_all_apply "nil"))

(title "errors as objects")
(setq failure (vl-catch-all-apply '/ '(50 0)))
(show-all '(failure
            (vl-catch-all-error-p failure)
            (vl-catch-all-error-message failure)
            (vl-catch-all-error-p (vl-catch-all-apply '/ '(50 5)))
            (vl-catch-all-apply '/ '(50 5))
            (vl-catch-all-error-p nil)))

(title "locals are back after a failure")
(defun spoil (/ counter) (setq counter "spoilt") (car 1))
(vl-catch-all-apply 'spoil)
(show 'counter)

(title "an error function is not called for what is caught")
(defun *error* (text) (princ "not reached"))
(vl-catch-all-apply 'car '(1))
(vl_catch_all_apply "(car 1)")
