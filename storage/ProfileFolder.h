#pragma once

#include <QString>

// The folder in which everything lives that a user's programs keep from run to run: the profile store, the registry,
// the history of the command line. It may not be there yet: who writes first makes it.
QString profileFolder();

// Another folder for this process; an empty text brings back the user's own. Set it before anything asks for the
// folder. A relative path is taken from the current directory as it is now: programs change that directory later.
void setProfileFolder(const QString &folder);
