#include "platform/RegistryFile.h"

#include "storage/SyncedWrite.h"

#include <QFile>

#include <algorithm>

namespace {

constexpr qint64 LeastGrowth = 256 * 1024; // bytes of changes that are never worth a new file

// Behind the last line "; end"; 0 without one.
qint64 endOfBlocks(const QByteArray &content)
{
    for (qint64 place = content.size(); (place = content.lastIndexOf("; end", place - 1)) >= 0;) {
        const qint64 end = place + 5;
        const bool beginsLine = place == 0 || content[place - 1] == '\n';
        if (beginsLine && end == content.size())
            return end; // somebody's editor left the last line without its end
        if (beginsLine && content[end] == '\n')
            return end + 1;
        if (beginsLine && content.mid(end, 2) == "\r\n")
            return end + 2;
        if (place == 0)
            break;
    }
    return 0;
}

QString describe(const QFile &file)
{
    return QStringLiteral("%1: %2").arg(file.fileName(), file.errorString());
}

} // namespace

RegistryFile::News RegistryFile::read()
{
    News news;
    const FileStamp stamp = FileStamp::of(m_path);
    if (m_isRead && stamp == m_stamp)
        return news;
    QFile file(m_path);
    if (stamp.exists() && !file.open(QIODevice::ReadOnly)) {
        news.failure = describe(file);
        return news;
    }
    const QByteArray content = file.isOpen() ? file.readAll() : QByteArray();
    const bool goesOn = m_isRead && !m_content.isEmpty() && content.startsWith(m_content);
    if (!goesOn)
        forget();
    news.kind = goesOn ? News::Kind::Added : News::Kind::Everything;
    news.firstLine = m_lines + 1;
    take(news, content.mid(m_content.size()));
    if (!goesOn && stamp.exists())
        news.loss = content.isEmpty() ? QStringLiteral("the file is empty") : loss();
    m_stamp = stamp;
    m_isRead = true;
    return news;
}

void RegistryFile::distrust()
{
    m_content.clear();
    m_lines = 0;
}

void RegistryFile::take(News &news, const QByteArray &content)
{
    const qint64 end = endOfBlocks(content);
    news.unfinished = content.mid(end);
    news.blocks = content.left(end);
    m_lines += static_cast<int>(news.blocks.count('\n'));
    if (m_content.isEmpty())
        m_firstBlock = news.blocks.indexOf("\n; end\n") + 7;
    m_content += news.blocks;
}

QString RegistryFile::loss() const
{
    const std::uint64_t changes = m_history.changesSince(m_content);
    if (changes < 2)
        return changes == 0 ? QString() : QStringLiteral("the last change is missing");
    return QStringLiteral("the last %1 changes are missing").arg(changes);
}

QString RegistryFile::append(const QByteArray &block)
{
    QFile file(m_path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered))
        return describe(file);
    if (file.size() != m_content.size())
        return QStringLiteral("%1: another program has changed the file meanwhile").arg(m_path);
    const QString reason = writeAndSync(file, block);
    if (!reason.isNull()) {
        file.resize(m_content.size());
        return QStringLiteral("%1: %2").arg(m_path, reason);
    }
    News own;
    const qsizetype before = m_content.size();
    take(own, block);
    m_history.goOn(m_content, before);
    m_stamp = FileStamp::of(m_path);
    return {};
}

QString RegistryFile::replace(const QByteArray &block)
{
    const QString failure = prepare(block);
    return failure.isNull() ? putInPlace() : failure;
}

QString RegistryFile::prepare(const QByteArray &block)
{
    QString failure;
    m_prepared = PreparedFile::make(
        m_path, [&block](QIODevice &file) { return writeAll(file, block); }, failure);
    m_preparedBlock = block;
    return failure;
}

QString RegistryFile::putInPlace()
{
    QString failure;
    const std::unique_ptr<PreparedFile> prepared = std::move(m_prepared);
    m_history.announce(m_preparedBlock);
    if (!prepared->putInPlace(failure))
        return failure;
    const QByteArray block = m_preparedBlock;
    forget();
    News own;
    take(own, block);
    m_history.begin(block);
    m_stamp = FileStamp::of(m_path);
    m_isRead = true;
    return {};
}

// What can fail for lack of room or rights comes first: a copy that is kept again and again would fill the folder.
QString RegistryFile::replaceKeepingCopy(const QByteArray &block, QString &copy)
{
    QString failure = prepare(block);
    if (failure.isNull())
        failure = keepCopy(copy);
    if (failure.isNull())
        return putInPlace();
    m_prepared.reset();
    return failure;
}

QString RegistryFile::keepCopy(QString &name) const
{
    int number = 1;
    do
        name = QStringLiteral("%1.damaged-%2").arg(m_path, QString::number(number++));
    while (QFile::exists(name));
    QFile file(m_path);
    return file.copy(name) ? QString() : describe(file);
}

bool RegistryFile::isGrown() const
{
    return m_content.size() - m_firstBlock > std::max(m_firstBlock, LeastGrowth);
}
