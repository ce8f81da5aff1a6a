#pragma once

#include "host/interpreter/Machine.h"
#include "host/kernel/CallFrame.h"
#include "host/kernel/NodePool.h"
#include "host/kernel/input/Prompter.h"
#include "lisp/LispHost.h"

#include <string>

class SystemVariables;
struct HostServices;

// The LISP interface of one document: what a module sees of the interpreter, and how the interpreter calls a module.
// Operations whose service this host does not have give the failure that their contract names.
class SubstituteLispHost final : public LispHost, public lisp::ExternalCaller
{
public:
    SubstituteLispHost(lisp::Machine &machine, HostServices &services, SystemVariables &variables);
    ~SubstituteLispHost();

    Prompter &prompter() { return m_prompter; }
    std::size_t liveNodes() const { return m_pool.liveNodes(); }

    lisp::Value call(lisp::Machine &machine, const lisp::External &function, lisp::Args arguments) override;

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
    int setResult(lisp::Value value);
    resbuf *nodesOf(lisp::Value value);

    lisp::Machine &m_machine;
    HostServices &m_services;
    SystemVariables &m_variables;
    Prompter m_prompter;
    NodePool m_pool;
    CallFrame *m_frame = nullptr; // of the running call; null between calls
};
