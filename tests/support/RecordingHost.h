#pragma once

#include "host/sdk/HostSdk.h"
#include "lisp/LispHost.h"
#include "sdk/fx/CFxDocument.h"
#include "sdk/fx/CFxUserInput.h"
#include "sdk/oda/OdDbObjectId.h"
#include "tests/support/NodeStore.h"

#include <QString>

#include <functional>
#include <map>
#include <string>
#include <vector>

using Operations = std::vector<std::string>;

// An operation with a text as it is recorded: operation("retWStr", "abc") is `retWStr "abc"`.
std::string operation(const char *name, const QString &text);
std::string operation(const char *name, const char *text); // UTF-8

// The codes of a list with its texts, integers and points, each behind a blank.
std::string describeList(const resbuf *list);

// What a recording host answers with where a status is not all.
struct HostReplies
{
    std::int32_t number = 0;                 // getInt, getVar
    std::int32_t defaultNumber = 0;          // what getInt was called with
    std::u16string input;                    // getInput
    std::u16string text;                     // getString
    LispPoint point{};                       // dragSelection; getEntityExtents, the minimum
    LispPoint otherPoint{};                  // getEntityExtents, the maximum
    LispPoint angleFrom{}, angleTo{};        // what angle was called with
    LispName name{};                         // namedObjDict; what the object id was asked for
    resbuf *list = nullptr;                  // dictSearch, entGet, entGetX
    resbuf *tableRecord = nullptr;           // tblSearch
    std::function<void(DragTransform)> drag; // what the host does with the transform
    OdDbDatabase *database = nullptr;
    OdDbObjectId objectId;
};

// An interpreter that does nothing but write down, in order, what is asked of it. It answers every operation with
// StatusNormal unless told otherwise. A test fails when an operation is not preceded by a fetch of the document and of
// its interpreter, or when a node is released twice.
class RecordingHost final : public LispHost, private CFxDocument, private HostSdk::ActiveDocumentProvider
{
public:
    enum class ReachedBy { ActiveDocument, GivenDocument };

    // ActiveDocument: it is the active document's interpreter as long as it lives.
    explicit RecordingHost(ReachedBy reachedBy = ReachedBy::ActiveDocument);
    ~RecordingHost();

    CFxDocument *document() { return this; }
    void setWindow(QWidget *window) { m_window = window; } // the document's; not owned

    // Begins a call: what getArgs will give. Forgets what was recorded.
    void setArguments(const Arguments &arguments);
    // What getArgsNarrow will give: one 8-bit string.
    void setNarrowArgument(const std::string &text) { m_narrowArguments = m_nodes.addNarrowText(text); }
    void setAnswer(const std::string &operationName, int answer);
    void setProfileText(const std::u16string &text) { m_profileText = text; }         // what getProfileString finds
    void setChosenFile(const QString &path) { m_chosenFile = path.toStdU16String(); } // what getFileDialog gives
    const Operations &operations() const { return m_operations; }
    const std::vector<LispHandler> &definedHandlers() const { return m_definedHandlers; } // of every defun, in order
    NodeStore &nodes() { return m_nodes; }
    HostReplies replies;

    int regApp(const char16_t *applicationName) override;
    int defun(const char16_t *name, LispHandler handler) override;
    int undefun(const char16_t *name) override;
    resbuf *getArgsNarrow() override;
    resbuf *getArgs() override;
    int retInt(std::int32_t value) override;
    int retReal(double value) override;
    int retNil() override;
    int retT() override;
    int retStr(const char *text) override;
    int retWStr(const char16_t *text) override;
    int retList(const resbuf *list) override;
    int retVal(const resbuf *list) override;
    int evaluate(const char16_t *text, resbuf **value) override;
    resbuf *buildListNarrow(int firstCode, ...) override;
    resbuf *buildList(int firstCode, ...) override;
    resbuf *newRb(int typeCode) override;
    void releaseRbNarrow(resbuf *list) override;
    void releaseRb(resbuf *list) override;
    int commandNarrow(const resbuf *tokens) override;
    int getEnvVar(const char *name, int zero, int secondZero, int capacity, char16_t *buffer) override;
    int setVar(const char16_t *name, const resbuf *value) override;
    int getVar(const char16_t *name, resbuf *value) override;
    int wcMatch(const char16_t *text, const char16_t *pattern) override;
    int prompt(const char16_t *format, ...) override;
    void progressStart(const char16_t *label) override;
    void progressEnd() override;
    int progressSet(int position) override;
    resbuf *entGet(const LispName *entity, bool wide) override;
    resbuf *entGetX(const LispName *entity, const resbuf *narrowApplicationNames, int zero) override;
    int entMod(const resbuf *list) override;
    resbuf *tblSearch(const char16_t *table, const char16_t *name, int next) override;
    double angle(const LispPoint *from, const LispPoint *to) override;
    int initGet(int flags, const char16_t *keywords) override;
    int getInt(const char16_t *prompt, std::int32_t *value) override;
    int getInput(char16_t *buffer, int capacity) override;
    int getString(int allowBlanks, const char16_t *prompt, char16_t *buffer, int capacity) override;
    int menuCmd(const char16_t *command) override;
    int findFile(const char16_t *name, char16_t *resultPath) override;
    int getFileDialog(const char16_t *title, const char16_t *defaultName, const char16_t *extension, int flags,
                      resbuf *result) override;
    int dragSelection(const LispName *selection, const char16_t *prompt, int cursorType, DragTransform transform,
                      LispPoint *result) override;
    void setTabletMode(int mode) override;
    int compileShape(const char16_t *firstFile, const char16_t *secondFile) override;
    int getEntityExtents(const LispName *entity, LispPoint *minimum, LispPoint *maximum) override;
    int helpTrap(const char16_t *first, const char16_t *helpFile, const char16_t *topic) override;
    int getProfileString(const char16_t *section, const char16_t *key, const char16_t *fallback, char16_t *buffer,
                         int capacity) override;
    int setProfileString(const char16_t *section, const char16_t *key, const char16_t *value) override;
    resbuf *dictSearch(const LispName *dictionary, const char16_t *key, int next) override;
    int namedObjDict(LispName *dictionary) override;
    void prependRb(resbuf *list, int typeCode, void *value) override;

private:
    class RecordingUserInput final : public CFxUserInput
    {
    public:
        explicit RecordingUserInput(RecordingHost &host) : m_host(host) {}
        int initGet(int bits, const char16_t *keywords) override;
        int getPoint(const char16_t *prompt, const LispPoint *base, LispPoint *result, CFxString *keyword) override;

    private:
        RecordingHost &m_host;
    };

    LispHost *lispHost() override;
    OdDbDatabase *database() override;
    CFxUserInput *userInput() override;
    QWidget *window() override { return m_window; }
    CFxDocument *activeDocument() override;
    OdDbObjectId objectId(const LispName &name) override;

    void prependNumber(resbuf *list, int typeCode, const std::int16_t *number);
    void record(const std::string &line);
    int recordAnswered(const std::string &name, const std::string &line); // gives the answer for that operation
    int recordText(const char *name, const char16_t *text);

    const ReachedBy m_reachedBy;
    bool m_documentFetched = false;
    bool m_hostFetched = false;
    Operations m_operations;
    std::vector<LispHandler> m_definedHandlers;
    std::map<std::string, int> m_answers;
    std::u16string m_profileText;
    NodeStore m_nodes;
    RecordingUserInput m_userInput{*this};
    QWidget *m_window = nullptr;
    std::u16string m_chosenFile;
    resbuf *m_arguments = nullptr;
    resbuf *m_narrowArguments = nullptr;
};
