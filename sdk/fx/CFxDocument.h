#pragma once

class CFxUserInput;
class LispHost;
class OdDbDatabase;
class QWidget;

// One open document. The host owns it.
class CFxDocument
{
public:
    // The document's interpreter; null while it has none. Fetch it anew for every use.
    virtual LispHost *lispHost() = 0;
    virtual OdDbDatabase *database() = 0; // the document's drawing
    virtual CFxUserInput *userInput() = 0;

    virtual QWidget *window() = 0; // null in a host without windows

protected:
    ~CFxDocument() = default;
};
