(define (tak x y z)
  (if (< y x)
      (tak (tak (- x 1) y z) (tak (- y 1) z x) (tak (- z 1) x y))
      z))

(define result #f)
(do ((k 0 (+ k 1))) ((= k 150)) (set! result (tak 18 12 6)))
(display result)
