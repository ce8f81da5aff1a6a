#pragma once

int acetFileReaddialog();  // acet-file-readdialog
int acetFileWritedialog(); // acet-file-writedialog
int acetUiPickdir();       // acet-ui-pickdir
