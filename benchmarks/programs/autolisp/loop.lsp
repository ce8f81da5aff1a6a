(defun count-up (limit / i sum)
  (setq i 0
        sum 0)
  (while (< i limit)
    (setq sum (- i sum)
          i (+ i 1)))
  sum)

(repeat 10 (setq result (count-up 2000000)))
(princ result)
