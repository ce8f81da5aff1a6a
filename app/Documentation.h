#pragma once

class Session;
class QString;

// `lisphost doc`: the signature and description of one function, or the names of all. Gives an exit status.
int showDocumentation(Session &session, const QString &name);
