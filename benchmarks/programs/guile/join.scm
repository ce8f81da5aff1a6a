(define (build count)
  (let loop ((i 0) (pieces '()))
    (if (< i count)
        (loop (+ i 1) (cons (number->string i) pieces))
        (string-concatenate (reverse pieces)))))

(define result #f)
(do ((k 0 (+ k 1))) ((= k 20)) (set! result (build 50000)))
(display (string-length result))
