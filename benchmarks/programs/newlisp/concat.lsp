(define (build n)
  (let (i 0 text "")
    (while (< i n)
      (setq text (append text (string (% i 10)))
            i (+ i 1)))
    text))

(print (length (build 50000)))
(exit)
