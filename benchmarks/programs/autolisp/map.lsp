(defun numbers (count / result)
  (while (< 0 count)
    (setq count (- count 1)
          result (cons (rem count 1000) result)))
  result)

(setq elements (numbers 200000))
(repeat 20
  (setq result (apply '+ (mapcar '(lambda (x) (- (* 2 x) 7)) elements))))
(princ result)
