(defun entries (count / result)
  (while (< 0 count)
    (setq count (- count 1)
          result (cons (cons count (* 3 count)) result)))
  result)

(defun look-up (table count / i sum)
  (setq i 0
        sum 0)
  (while (< i count)
    (setq sum (+ sum (cdr (assoc (rem (* i 7919) 1000) table)))
          i (+ i 1)))
  sum)

(setq table (entries 1000))
(repeat 3 (setq result (look-up table 20000)))
(princ result)
