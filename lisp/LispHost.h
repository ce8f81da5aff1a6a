#pragma once

#include "lisp/LispHandler.h"
#include "lisp/resbuf.h"

// Where the cursor is during a drag, and the transform to show there. Gives StatusNormal to go on.
struct LispMatrix
{
    double rows[4][4];
};
using DragTransform = int (*)(const LispPoint *cursor, LispMatrix *transform);

// What findFile's buffer must hold, in UTF-16 units with the terminator.
inline constexpr int FoundPathUnits = 4096;

// A document's interpreter as the host offers it to modules.
//
// The order of the operations is the host's virtual table: nothing may be inserted, moved or removed, not even a
// destructor. Texts are NUL-terminated and copied by the host unless said otherwise; "status" is a LispStatus. Lists
// given back belong to the caller, who releases them with releaseRb, lists with 8-bit strings with releaseRbNarrow.
class LispHost
{
public:
    virtual int regApp(const char16_t *applicationName) = 0; // status; for extended entity data

    virtual int defun(const char16_t *name, LispHandler handler) = 0; // status
    virtual int undefun(const char16_t *name) = 0;                    // status

    // The argument list of the current call; null when there is none.
    virtual resbuf *getArgsNarrow() = 0;
    virtual resbuf *getArgs() = 0;

    // Set the current call's result; status. Without one the result is nil.
    virtual int retInt(std::int32_t value) = 0;
    virtual int retReal(double value) = 0;
    virtual int retNil() = 0;
    virtual int retT() = 0;
    virtual int retStr(const char *text) = 0;
    virtual int retWStr(const char16_t *text) = 0;
    virtual int retList(const resbuf *list) = 0; // copied: the caller keeps and releases its nodes
    virtual int retVal(const resbuf *list) = 0;  // likewise, of a list that begins with a TypeListBegin node

    // StatusNormal, or StatusError when the evaluation raised a LISP error. *value receives a list or null.
    virtual int evaluate(const char16_t *text, resbuf **value) = 0;

    // Type codes and values in turn, ended by a code of 0 or TypeNone (the narrow form by TypeNone alone). Integers as
    // int, reals as double, strings as text; points and names by address; no value after TypeListBegin, TypeListEnd,
    // TypeDot, TypeNil, TypeTrue and -3, where the extended data of an entity begin.
    virtual resbuf *buildListNarrow(int firstCode, ...) = 0;
    virtual resbuf *buildList(int firstCode, ...) = 0;
    virtual resbuf *newRb(int typeCode) = 0; // one node, its value all zero

    // Release from this node to the end of the list, with the strings it owns. Null is allowed.
    virtual void releaseRbNarrow(resbuf *list) = 0;
    virtual void releaseRb(resbuf *list) = 0;

    virtual int commandNarrow(const resbuf *tokens) = 0; // status; tokens in order, as if typed

    // status; StatusNormal when found. The zeros are the host's business; the capacity is in UTF-16 units.
    virtual int getEnvVar(const char *name, int zero, int secondZero, int capacity, char16_t *buffer) = 0;

    virtual int setVar(const char16_t *name, const resbuf *value) = 0; // status
    virtual int getVar(const char16_t *name, resbuf *value) = 0;       // status; fills the node given

    virtual int wcMatch(const char16_t *text, const char16_t *pattern) = 0; // StatusNormal when it matches

    // Print on the command line. The format is printf's, where %s takes UTF-16 text: text that came from a user must be
    // an argument, never the format.
    virtual int prompt(const char16_t *format, ...) = 0; // status

    virtual void progressStart(const char16_t *label) = 0;
    virtual void progressEnd() = 0;
    virtual int progressSet(int position) = 0; // 0: failed

    virtual resbuf *entGet(const LispName *entity, bool wide) = 0; // modules pass true
    virtual resbuf *entGetX(const LispName *entity, const resbuf *narrowApplicationNames, int zero) = 0; // narrow list
    virtual int entMod(const resbuf *list) = 0;                                                          // status
    virtual resbuf *tblSearch(const char16_t *table, const char16_t *name, int next) = 0; // null: not there

    virtual double angle(const LispPoint *from, const LispPoint *to) = 0; // radians

    // flags: 2 no zero, 4 no negative. Holds for the next request of user input alone.
    virtual int initGet(int flags, const char16_t *keywords) = 0;        // status
    virtual int getInt(const char16_t *prompt, std::int32_t *value) = 0; // StatusNormal, StatusNoInput, StatusKeyword
    virtual int getInput(char16_t *buffer, int capacity) = 0;            // status; what was typed at the last request
    virtual int getString(int allowBlanks, const char16_t *prompt, char16_t *buffer, int capacity) = 0; // status

    virtual int menuCmd(const char16_t *command) = 0; // status

    // StatusNormal when found: the full path then stands in the buffer, which has room for FoundPathUnits.
    virtual int findFile(const char16_t *name, char16_t *resultPath) = 0;

    // StatusNormal and a string in the node when a file was chosen. The string stays the host's, until the call ends.
    virtual int getFileDialog(const char16_t *title, const char16_t *defaultName, const char16_t *extension, int flags,
                              resbuf *result) = 0;

    // StatusNormal: point picked; StatusText: text typed; anything else: cancelled.
    virtual int dragSelection(const LispName *selection, const char16_t *prompt, int cursorType,
                              DragTransform transform, LispPoint *result) = 0;

    virtual void setTabletMode(int mode) = 0;
    virtual int compileShape(const char16_t *firstFile, const char16_t *secondFile) = 0; // status

    virtual int getEntityExtents(const LispName *entity, LispPoint *minimum, LispPoint *maximum) = 0; // status

    virtual int helpTrap(const char16_t *first, const char16_t *helpFile, const char16_t *topic) = 0; // status

    // The host's profile store; status.
    virtual int getProfileString(const char16_t *section, const char16_t *key, const char16_t *fallback,
                                 char16_t *buffer, int capacity) = 0;
    virtual int setProfileString(const char16_t *section, const char16_t *key, const char16_t *value) = 0;

    virtual resbuf *dictSearch(const LispName *dictionary, const char16_t *key, int next) = 0; // null: not there
    virtual int namedObjDict(LispName *dictionary) = 0;                                        // status

    // Inserts a node right after the list's first. `value` is the address of the number, point or name; for a string
    // it is the text itself, allocated with malloc, and belongs to the list from here on.
    virtual void prependRb(resbuf *list, int typeCode, void *value) = 0;

protected:
    ~LispHost() = default;
};
