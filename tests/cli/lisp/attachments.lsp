;; Extension dictionaries and reactors, given by lists.
(defun dictionary () (entmakex '((0 . "DICTIONARY") (100 . "AcDbDictionary"))))
(defun line () (entmakex '((0 . "LINE") (10 0 0) (11 1 1))))
(defun owning (dictionary) (list '(102 . "{ACAD_XDICTIONARY") (cons 360 dictionary) '(102 . "}")))
(defun heard (by) (list '(102 . "{ACAD_REACTORS") (cons 330 by) '(102 . "}")))
(defun attach (entity groups) (if (entmod (append (entget entity) groups)) 'attached))
(defun owner (dictionary) (cdr (assoc 5 (entget (cdr (assoc 330 (entget dictionary)))))))
;; The groups ahead of the first marker, with the handles of those that they name.
(defun head (entity / groups head)
  (setq groups (cdr (entget entity)))
  (while (/= (caar groups) 100)
    (setq head (cons (if (= (type (cdar groups)) 'ENAME) (list (caar groups) (cdr (assoc 5 (entget (cdar groups))))) (car groups)) head)
          groups (cdr groups)))
  (reverse head))

(setq first (line) second (line) one (dictionary) two (dictionary))

(title "they stand behind the handle, and the dictionary has its owner")
(show-all '((attach first (owning one)) (owner one) (attach first (heard second)) (head first)
            (setq made (entmakex (append '((0 . "POINT") (10 0 0)) (heard first) (owning two)))) (head made) (owner two)
            (attach first '((62 . 1))) (head first)))

(title "a dictionary has one owner")
(show-all '((attach second (owning one)) (attach second (owning (namedobjdict))) (attach second (owning first))
            (attach second (append (list '(102 . "{ACAD_XDICTIONARY") (cons 360 one)))) (attach one (owning one)) (head second)))

(title "a copy has none, and its reactors")
(show-all '((head (setq copy (entmakex (cdr (entget first))))) (owner one)))

(title "reactors are there")
(entdel copy)
(show-all '((attach second (heard copy)) (head second)))

(title "empty braces remove what they are for")
(show-all '((if (entmod (list (cons -1 first) '(102 . "{ACAD_XDICTIONARY") '(102 . "}"))) (head first)) (owner one)
            (attach second (owning one)) (owner one)))

(title "so do objects")
(setq object (dictionary) third (dictionary))
(show-all '((attach object (owning third)) (equal (cdr (assoc 330 (entget third))) object)
            (dictadd object "X" (entmakex '((0 . "XRECORD") (100 . "AcDbXrecord") (102 . "{ACAD_REACTORS") (1 . "data") (102 . "}"))))
            (cdr (member '(100 . "AcDbXrecord") (entget (cdr (assoc 350 (entget object))))))))
