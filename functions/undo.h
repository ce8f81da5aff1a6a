#pragma once

int acetBeginUndogroup();       // acet-begin-undogroup
int acetEndUndogroup();         // acet-end-undogroup
int startAddTableTransaction(); // startAddTableTransaction
int endAddTableTransaction();   // endAddTableTransaction
int acetUtilVer();              // acet-util-ver
