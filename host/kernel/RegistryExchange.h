#pragma once

#include <QString>
#include <QStringList>

#include <optional>
#include <string>
#include <string_view>

// The registry as the text in which Windows exchanges it (storage/RegistryText.h).

// The keys with all below them; their paths begin with a root. Nothing when one of them is not there or cannot be
// written as text, which `failure` then says.
std::optional<std::u16string> exportRegistry(const QStringList &keys, QString &failure);

// Takes over what a text of either form says, all or nothing. Gives what stood in the way, each a line such as "line 5:
// '=' is missing"; then the registry is as it was. On Windows alone a change that the system refuses leaves the ones
// before it.
QStringList importRegistry(std::u16string_view text);
