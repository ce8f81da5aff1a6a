#pragma once

int acetUiStatus();        // acet-ui-status
int acetUiProgress();      // acet-ui-progress
int acetUiTxted();         // acet-ui-txted
int editRtext();           // _editRtext_
int showhtmlmodalwindow(); // showhtmlmodalwindow
int wexoHtmlprompt();      // wexo_htmlprompt
