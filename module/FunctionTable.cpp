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

#include <array>

namespace {

constexpr std::array<FunctionRow, 75> table = {{
    {"acet-file-attr", guarded<acetFileAttr>},
    {"acet-file-chdir", guarded<acetFileChdir>},
    {"acet-file-cwd", guarded<acetFileCwd>},
    {"acet-file-mkdir", guarded<acetFileMkdir>},
    {"acet-file-remove", guarded<acetFileRemove>},
    {"acet-ent-geomextents", guarded<acetEntGeomextents>},
    {"acet-file-move", guarded<acetFileMove>},
    {"acet-file-readdialog", guarded<acetFileReaddialog>},
    {"acet-file-rmdir", guarded<acetFileRmdir>},
    {"acet-file-writedialog", guarded<acetFileWritedialog>},
    {"acet-ini-set", guarded<acetIniSet>},
    {"acet-ini-get", guarded<acetIniGet>},
    {"acet-ss-clear-prev", guarded<acetSsClearPrev>},
    {"vl_catch_all_apply", guarded<vlCatchAllApply>},
    {"vl_catch_all_error_p", guarded<vlCatchAllErrorP>},
    {"acet-reg-get", guarded<acetRegGet>},
    {"acet-reg-put", guarded<acetRegPut>},
    {"acet-reg-del", guarded<acetRegDel>},
    {"acet-str-equal", guarded<acetStrEqual>},
    {"acet-str-collate", guarded<acetStrCollate>},
    {"acet-str-wcmatch", guarded<acetStrWcmatch>},
    {"acet-str-format", guarded<acetStrFormat>},
    {"acet-sys-beep", guarded<acetSysBeep>},
    {"_xstrcase", guarded<xstrcase>},
    {"startapp", guarded<startapp>},
    {"geturl", guarded<geturl>},
    {"acet-reg-prodkey", guarded<acetRegProdkey>},
    {"acet-reg-machine-prodkey", guarded<acetRegMachineProdkey>},
    {"acet-reg-user-prodkey", guarded<acetRegUserProdkey>},
    {"acet-sys-command", guarded<acetSysCommand>},
    {"acet-sys-foreground", guarded<acetSysForeground>},
    {"acet-sys-procid", guarded<acetSysProcid>},
    {"acet-sys-sleep", guarded<acetSysSleep>},
    {"acet-sys-spawn", guarded<acetSysSpawn>},
    {"acet-sys-term", guarded<acetSysTerm>},
    {"acet-sys-wait", guarded<acetSysWait>},
    {"acet-ui-pickdir", guarded<acetUiPickdir>},
    {"acet-util-ver", guarded<acetUtilVer>},
    {"acet-ui-progress", guarded<acetUiProgress>},
    {"acet-ui-message", guarded<acetUiMessage>},
    {"acet-ui-message-html", guarded<acetUiMessageHtml>},
    {"acet-sys-keystate", guarded<acetSysKeystate>},
    {"acet-sys-lasterr", guarded<acetSysLasterr>},
    {"acet-sys-lmouse-down", guarded<acetSysLmouseDown>},
    {"acet-sys-mmouse-down", guarded<acetSysMmouseDown>},
    {"acet-sys-rmouse-down", guarded<acetSysRmouseDown>},
    {"acet_filename_associated_app", guarded<acetFilenameAssociatedApp>},
    {"showhtmlmodalwindow", guarded<showhtmlmodalwindow>},
    {"layoutlist", guarded<layoutlist>},
    {"acet_set_config", guarded<acetSetConfig>},
    {"acet_get_config", guarded<acetGetConfig>},
    {"acet-help", guarded<acetHelp>},
    {"seturl", guarded<seturl>},
    {"acet-ui-txted", guarded<acetUiTxted>},
    {"_editRtext_", guarded<editRtext>},
    {"acet-str-find", guarded<acetStrFind>},
    {"acet-str-replace", guarded<acetStrReplace>},
    {"acet-ss-drag-rotate", guarded<acetSsDragRotate>},
    {"ismnugrploaded", guarded<ismnugrploaded>},
    {"acet-ui-status", guarded<acetUiStatus>},
    {"tablet", guarded<tablet>},
    {"_vorns_util", guarded<vornsUtil>},
    {"acad_truecolorcli", guarded<acadTruecolorcli>},
    {"acet-help-trap", guarded<acetHelpTrap>},
    {"acet-var-setvar", guarded<acetVarSetvar>},
    {"acet-var-getvar", guarded<acetVarGetvar>},
    {"wexo_getpointEsc", guarded<wexoGetpointEsc>},
    {"wexo_compileshp", guarded<wexoCompileshp>},
    {"wexo_htmlprompt", guarded<wexoHtmlprompt>},
    {"acet-filename-acad-root", guarded<acetFilenameAcadRoot>},
    {"wexo_opendefaultapp", guarded<wexoOpendefaultapp>},
    {"startAddTableTransaction", guarded<startAddTableTransaction>},
    {"endAddTableTransaction", guarded<endAddTableTransaction>},
    {"acet-begin-undogroup", guarded<acetBeginUndogroup>},
    {"acet-end-undogroup", guarded<acetEndUndogroup>},
}};

} // namespace

std::span<const FunctionRow> functionTable()
{
    return table;
}
