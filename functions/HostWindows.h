#pragma once

class QWidget;

// The host's windows, asked for anew at every use. Null in a host without windows.
QWidget *hostMainWindow();
QWidget *activeDocumentWindow();
