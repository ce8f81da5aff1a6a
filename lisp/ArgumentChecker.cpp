#include "lisp/ArgumentChecker.h"

#include "lisp/ActiveLispHost.h"
#include "lisp/CommandLine.h"

resbuf *checkArgument(TypeCode expected, resbuf *node, Presence presence)
{
    if (node == nullptr) {
        if (presence == Presence::Required)
            failWith("\nError: Too few arguments.");
        return nullptr;
    }
    if (node->restype != expected) {
        failWith(WrongTypeMessage);
        // This node, not the head of the list: the interpreter reclaims the nodes before it.
        activeLispHost()->releaseRb(node);
        return nullptr;
    }
    return node;
}
