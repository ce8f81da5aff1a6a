(defun f (x / y) ; c
 (list 'x "a\n" 1.5 (1 . 2)))