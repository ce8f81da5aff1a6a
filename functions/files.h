#pragma once

int acetFileAttr();   // acet-file-attr
int acetFileChdir();  // acet-file-chdir
int acetFileCwd();    // acet-file-cwd
int acetFileMkdir();  // acet-file-mkdir
int acetFileMove();   // acet-file-move
int acetFileRemove(); // acet-file-remove
int acetFileRmdir();  // acet-file-rmdir
