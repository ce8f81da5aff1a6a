#pragma once

// Runs an action in a child process without the rights of the superuser, who may read and write everything, and tells
// whether it gave true there. Permissions so mean the same whoever runs the tests. What the action expects inside must
// be in what it gives: failed expectations of the child are not seen.
bool holdsUnprivileged(bool (*action)(void *context), void *context);

template <typename Action> bool holdsUnprivileged(Action action)
{
    return holdsUnprivileged([](void *context) { return (*static_cast<Action *>(context))(); }, &action);
}
