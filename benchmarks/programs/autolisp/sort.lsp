;; All numbers of one run of the generator differ, and none is too large for 32 bits on the way.
(defun numbers (count / x result)
  (setq x 1)
  (repeat count
    (setq x (rem (+ (* x 10005) 12345) 131072)
          result (cons x result)))
  result)

(defun check-sum (numbers / sum)
  (setq sum 0)
  (foreach x numbers (setq sum (rem (+ (* sum 31) x) 65521)))
  sum)

(setq unsorted (numbers 100000))
(repeat 5 (setq result (check-sum (vl-sort unsorted '<))))
(princ result)
