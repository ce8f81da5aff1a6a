#pragma once

#include "host/commands/Input.h"
#include "host/interpreter/Value.h"

class Document;

// A value as an answer to a command: texts, numbers, points, entity names alone or with the point where they were
// picked, selection sets. Others are a LISP error.
commands::Input answerOf(Document &document, lisp::Value value);
