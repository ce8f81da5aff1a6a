(define (count-up limit)
  (let loop ((i 0) (sum 0))
    (if (< i limit)
        (loop (+ i 1) (- i sum))
        sum)))

(define result #f)
(do ((k 0 (+ k 1))) ((= k 10)) (set! result (count-up 2000000)))
(display result)
