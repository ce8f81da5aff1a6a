#pragma once

#include "host/kernel/input/Answer.h"

#include <deque>
#include <optional>
#include <stdexcept>

// An answers file that cannot be read; the text names the file, and the line where there is one.
class AnswersError : public std::runtime_error
{
public:
    explicit AnswersError(const QString &message) : std::runtime_error(message.toStdString()) {}
};

// The answers of a person who is not there, in order, one for each request. Without a file there are none.
class AnswersFile
{
public:
    AnswersFile() = default;
    // UTF-8, with or without a byte-order mark. Raises AnswersError.
    static AnswersFile read(const QString &path);
    static AnswersFile fromText(QStringView text, const QString &name);

    const Answer *peek() const { return m_answers.empty() ? nullptr : &m_answers.front(); }
    std::optional<Answer> take();

private:
    std::deque<Answer> m_answers;
};
