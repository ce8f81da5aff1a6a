#include "module/FunctionTable.h"

#include "functions/associations.h"
#include "functions/catch.h"
#include "functions/colors.h"
#include "functions/config.h"
#include "functions/dragrotate.h"
#include "functions/drawing.h"
#include "functions/filedialogs.h"
#include "functions/files.h"
#include "functions/help.h"
#include "functions/hostqueries.h"
#include "functions/ini.h"
#include "functions/processes.h"
#include "functions/registry.h"
#include "functions/strings.h"
#include "functions/system.h"
#include "functions/sysvars.h"
#include "functions/textsearch.h"
#include "functions/ui.h"
#include "functions/uimessages.h"
#include "functions/undo.h"
#include "lisp/GuardedHandler.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace {

LispHandler handlerOf(std::string_view name)
{
    for (const FunctionRow &row : functionTable()) {
        if (row.name == name)
            return row.handler;
    }
    return nullptr;
}

} // namespace

TEST(FunctionTable, HasIts75RowsInOrder)
{
    const std::vector<std::string> expected = {"acet-file-attr",
                                               "acet-file-chdir",
                                               "acet-file-cwd",
                                               "acet-file-mkdir",
                                               "acet-file-remove",
                                               "acet-ent-geomextents",
                                               "acet-file-move",
                                               "acet-file-readdialog",
                                               "acet-file-rmdir",
                                               "acet-file-writedialog",
                                               "acet-ini-set",
                                               "acet-ini-get",
                                               "acet-ss-clear-prev",
                                               "vl_catch_all_apply",
                                               "vl_catch_all_error_p",
                                               "acet-reg-get",
                                               "acet-reg-put",
                                               "acet-reg-del",
                                               "acet-str-equal",
                                               "acet-str-collate",
                                               "acet-str-wcmatch",
                                               "acet-str-format",
                                               "acet-sys-beep",
                                               "_xstrcase",
                                               "startapp",
                                               "geturl",
                                               "acet-reg-prodkey",
                                               "acet-reg-machine-prodkey",
                                               "acet-reg-user-prodkey",
                                               "acet-sys-command",
                                               "acet-sys-foreground",
                                               "acet-sys-procid",
                                               "acet-sys-sleep",
                                               "acet-sys-spawn",
                                               "acet-sys-term",
                                               "acet-sys-wait",
                                               "acet-ui-pickdir",
                                               "acet-util-ver",
                                               "acet-ui-progress",
                                               "acet-ui-message",
                                               "acet-ui-message-html",
                                               "acet-sys-keystate",
                                               "acet-sys-lasterr",
                                               "acet-sys-lmouse-down",
                                               "acet-sys-mmouse-down",
                                               "acet-sys-rmouse-down",
                                               "acet_filename_associated_app",
                                               "showhtmlmodalwindow",
                                               "layoutlist",
                                               "acet_set_config",
                                               "acet_get_config",
                                               "acet-help",
                                               "seturl",
                                               "acet-ui-txted",
                                               "_editRtext_",
                                               "acet-str-find",
                                               "acet-str-replace",
                                               "acet-ss-drag-rotate",
                                               "ismnugrploaded",
                                               "acet-ui-status",
                                               "tablet",
                                               "_vorns_util",
                                               "acad_truecolorcli",
                                               "acet-help-trap",
                                               "acet-var-setvar",
                                               "acet-var-getvar",
                                               "wexo_getpointEsc",
                                               "wexo_compileshp",
                                               "wexo_htmlprompt",
                                               "acet-filename-acad-root",
                                               "wexo_opendefaultapp",
                                               "startAddTableTransaction",
                                               "endAddTableTransaction",
                                               "acet-begin-undogroup",
                                               "acet-end-undogroup"};
    std::vector<std::string> names;
    for (const FunctionRow &row : functionTable())
        names.push_back(row.name);
    EXPECT_EQ(names, expected);
    EXPECT_EQ(std::set<std::string>(names.begin(), names.end()).size(), 75u);
}

TEST(FunctionTable, EveryRowHasItsOwnHandler)
{
    const std::map<std::string, LispHandler> expected = {
        {"acet-file-attr", guarded<acetFileAttr>},
        {"acet-file-chdir", guarded<acetFileChdir>},
        {"acet-file-cwd", guarded<acetFileCwd>},
        {"acet-file-mkdir", guarded<acetFileMkdir>},
        {"acet-file-move", guarded<acetFileMove>},
        {"acet-file-remove", guarded<acetFileRemove>},
        {"acet-file-rmdir", guarded<acetFileRmdir>},
        {"acet-ini-get", guarded<acetIniGet>},
        {"acet-ini-set", guarded<acetIniSet>},
        {"acet-reg-del", guarded<acetRegDel>},
        {"acet-reg-get", guarded<acetRegGet>},
        {"acet-reg-put", guarded<acetRegPut>},
        {"acet-reg-machine-prodkey", guarded<acetRegProdkey>}, // one handler under two names
        {"acet-reg-prodkey", guarded<acetRegProdkey>},
        {"acet-reg-user-prodkey", guarded<acetRegUserProdkey>},
        {"acet-str-collate", guarded<acetStrCollate>},
        {"acet-str-equal", guarded<acetStrEqual>},
        {"acet-str-find", guarded<acetStrFind>},
        {"acet-str-format", guarded<acetStrFormat>},
        {"acet-str-replace", guarded<acetStrReplace>},
        {"acet-str-wcmatch", guarded<acetStrWcmatch>},
        {"acet-util-ver", guarded<acetUtilVer>},
        {"acet-var-getvar", guarded<acetVarGetvar>},
        {"acet-var-setvar", guarded<acetVarSetvar>},
        {"acet_get_config", guarded<acetGetConfig>},
        {"acet_set_config", guarded<acetSetConfig>},
        {"vl_catch_all_apply", guarded<vlCatchAllApply>},
        {"vl_catch_all_error_p", guarded<vlCatchAllErrorP>},
        {"_xstrcase", guarded<xstrcase>},
        {"acet-help-trap", guarded<acetHelpTrap>},
        {"seturl", guarded<seturl>},
        {"acet-help", guarded<acetHelp>},
        {"geturl", guarded<geturl>},
        {"wexo_opendefaultapp", guarded<wexoOpendefaultapp>},
        {"acet_filename_associated_app", guarded<acetFilenameAssociatedApp>},
        {"acet-filename-acad-root", guarded<acetFilenameAcadRoot>},
        {"acet-sys-sleep", guarded<acetSysSleep>},
        {"acet-sys-rmouse-down", guarded<acetSysRmouseDown>},
        {"acet-sys-mmouse-down", guarded<acetSysMmouseDown>},
        {"acet-sys-lmouse-down", guarded<acetSysLmouseDown>},
        {"acet-sys-lasterr", guarded<acetSysLasterr>},
        {"acet-sys-keystate", guarded<acetSysKeystate>},
        {"acet-sys-foreground", guarded<acetSysForeground>},
        {"acet-sys-beep", guarded<acetSysBeep>},
        {"startapp", guarded<startapp>},
        {"acet-sys-wait", guarded<acetSysWait>},
        {"acet-sys-term", guarded<acetSysTerm>},
        {"acet-sys-spawn", guarded<acetSysSpawn>},
        {"acet-sys-procid", guarded<acetSysProcid>},
        {"acet-sys-command", guarded<acetSysCommand>},
        {"_vorns_util", guarded<vornsUtil>},
        {"acad_truecolorcli", guarded<acadTruecolorcli>},
        {"acet-ent-geomextents", guarded<acetEntGeomextents>},
        {"acet-ss-clear-prev", guarded<acetSsClearPrev>},
        {"acet-ss-drag-rotate", guarded<acetSsDragRotate>},
        {"ismnugrploaded", guarded<ismnugrploaded>},
        {"layoutlist", guarded<layoutlist>},
        {"tablet", guarded<tablet>},
        {"_editRtext_", guarded<editRtext>},
        {"acet-file-readdialog", guarded<acetFileReaddialog>},
        {"acet-file-writedialog", guarded<acetFileWritedialog>},
        {"acet-ui-message", guarded<acetUiMessage>},
        {"acet-ui-message-html", guarded<acetUiMessageHtml>},
        {"acet-ui-pickdir", guarded<acetUiPickdir>},
        {"acet-ui-progress", guarded<acetUiProgress>},
        {"acet-ui-status", guarded<acetUiStatus>},
        {"acet-ui-txted", guarded<acetUiTxted>},
        {"showhtmlmodalwindow", guarded<showhtmlmodalwindow>},
        {"wexo_htmlprompt", guarded<wexoHtmlprompt>},
        {"wexo_compileshp", guarded<wexoCompileshp>},
        {"wexo_getpointEsc", guarded<wexoGetpointEsc>},
        {"startAddTableTransaction", guarded<startAddTableTransaction>},
        {"endAddTableTransaction", guarded<endAddTableTransaction>},
        {"acet-begin-undogroup", guarded<acetBeginUndogroup>},
        {"acet-end-undogroup", guarded<acetEndUndogroup>},
    };
    std::map<std::string, LispHandler> rows;
    for (const FunctionRow &row : functionTable())
        rows.emplace(row.name, row.handler);
    EXPECT_TRUE(rows == expected);
}

TEST(FunctionTable, RegProdkeyAndRegMachineProdkeyBehaveIdentically)
{
    EXPECT_EQ(handlerOf("acet-reg-prodkey"), handlerOf("acet-reg-machine-prodkey"));
}
