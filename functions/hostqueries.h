#pragma once

int ismnugrploaded();  // ismnugrploaded
int tablet();          // tablet
int wexoCompileshp();  // wexo_compileshp
int wexoGetpointEsc(); // wexo_getpointEsc
