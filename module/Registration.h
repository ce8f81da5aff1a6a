#pragma once

class CFxDocument;

// Define the function table's functions in a document's interpreter, and remove them from it again. Statuses are not
// looked at: one name that fails does not stop the others.
void registerFunctions(CFxDocument *document);

// Two functions stay defined, as LISP programs have come to know it: acet-ini-set, in whose place a name that nobody
// defines is removed, and acet-ui-message-html, which is passed over. So 74 names are removed.
void unregisterFunctions(CFxDocument *document);
