(define (fib n)
  (if (< n 2)
      n
      (+ (fib (- n 1)) (fib (- n 2)))))

(define result #f)
(do ((k 0 (+ k 1))) ((= k 20)) (set! result (fib 27)))
(display result)
