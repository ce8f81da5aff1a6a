#pragma once

class LispHost;

// One open document. The host owns it.
class CFxDocument
{
public:
    // The document's interpreter; null while it has none. Fetch it anew for every use.
    virtual LispHost *lispHost() = 0;

protected:
    ~CFxDocument() = default;
};
