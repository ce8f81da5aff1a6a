#include "platform/RegistryHive.h"

#include <QDir>
#include <QFileInfo>
#include <QThread>

#include <utility>

using std::chrono::milliseconds;

namespace {

// An editor that saves a file in place empties it first, and knows nothing of locks.
constexpr unsigned long SavingInMilliseconds = 50;

constexpr char16_t Explanation[] = u"\n; Programs add their changes at the end of this file, each finished by the line "
                                   u"below, without which it does not\n"
                                   u"; count. Add yours in the same way.\n";

// Builds a tree from what a text says. The root is there already, and all paths begin with its name or do not count.
class TreeBuilder final : public RegistryTextReceiver
{
public:
    explicit TreeBuilder(RegistryKey &root) : m_root(root) {}

    bool hasStrangers() const { return m_hasStrangers; } // keys of another root
    bool hasRemovedKeys() const { return m_hasRemovedKeys; }

    void addKey(std::u16string_view path) override
    {
        const std::optional<std::u16string_view> below = pathBelowRoot(path);
        m_key = below ? &findOrAddKey(m_root, *below) : nullptr;
    }
    void removeKey(std::u16string_view path) override
    {
        const std::optional<std::u16string_view> below = pathBelowRoot(path);
        const RegistryKey *key = below ? findKey(m_root, *below) : nullptr;
        if (key != nullptr && key->parent != nullptr)
            m_hasRemovedKeys |= key->parent->keys.remove(key->name);
        m_key = nullptr;
    }
    void setValue(std::u16string_view name, std::uint32_t type, const QByteArray &data) override
    {
        if (m_key != nullptr)
            ::setValue(*m_key, name, type, data);
    }
    void removeValue(std::u16string_view name) override
    {
        if (m_key != nullptr)
            m_key->values.remove(name);
    }

private:
    std::optional<std::u16string_view> pathBelowRoot(std::u16string_view path)
    {
        const std::u16string_view name = path.substr(0, path.find(u'\\'));
        if (RegistryNameEqual()(name, m_root.name))
            return path.substr(name.size());
        m_hasStrangers = true;
        return std::nullopt;
    }

    RegistryKey &m_root;
    RegistryKey *m_key = nullptr;
    bool m_hasStrangers = false;
    bool m_hasRemovedKeys = false;
};

QByteArray inUtf8(std::u16string_view text)
{
    return QStringView(text).toString().toUtf8();
}

} // namespace

RegistryHive::RegistryHive(const std::u16string &rootName, const QString &folder, RegistryNotice &notice,
                           std::function<void(RegistryKey &)> complete)
    : m_rootName(rootName), m_notice(notice), m_complete(std::move(complete)),
      m_file(folder + u'/' + QString::fromStdU16String(rootName) + QStringLiteral(".reg"))
{
}

RegistryKey &RegistryHive::root()
{
    // While this process changes the hive, nobody else does.
    if (m_depth > 0)
        return *m_root;
    const std::optional<RegistryNotice::Moment> now = m_notice.now();
    if (m_root == nullptr || !now || now != m_seen) {
        lookAtFile();
        m_seen = now;
    }
    return *m_root;
}

void RegistryHive::startAnew()
{
    m_root = std::make_unique<RegistryKey>(RegistryKey{m_rootName, nullptr});
    m_isComplete = false;
    ++m_revision;
    m_errors.clear();
}

void RegistryHive::apply(const QByteArray &lines, int firstLine)
{
    TreeBuilder builder(*m_root);
    if (!QUtf8StringView(lines).isValidUtf8())
        m_errors.push_back({firstLine, QStringLiteral("not in UTF-8")});
    const std::u16string text = QString::fromUtf8(lines).toStdU16String();
    std::u16string_view statements = text;
    if (firstLine == 1 && statements.starts_with(RegistryTextHeader))
        statements.remove_prefix(RegistryTextHeader.size());
    else if (firstLine == 1)
        m_errors.push_back({1, QStringLiteral("the first line does not say that this is a registry text")});
    const std::vector<RegistryTextError> errors = readRegistryLines(statements, builder, firstLine);
    m_errors.insert(m_errors.end(), errors.begin(), errors.end());
    if (builder.hasStrangers())
        m_errors.push_back({firstLine, QStringLiteral("keys of another root")});
    m_revision += builder.hasRemovedKeys() ? 1 : 0;
}

// What is unfinished is the work of a process that is at it or has died. Only the lock tells, and who gets it repairs.
void RegistryHive::lookAtFile()
{
    RegistryFile::News news = m_file.read();
    m_failure = news.failure;
    if (m_root == nullptr || news.kind == RegistryFile::News::Kind::Everything)
        startAnew();
    if (news.kind != RegistryFile::News::Kind::None && !news.blocks.isEmpty())
        apply(news.blocks, news.firstLine);
    if (!m_failure.isNull())
        warn(m_failure);
    else if (isDamaged(news))
        repair();
    if (!m_isComplete)
        m_complete(*m_root);
    m_isComplete = true;
}

void RegistryHive::repair()
{
    std::unique_ptr<FileLock> lock;
    if (m_lock == nullptr) {
        lock = std::make_unique<FileLock>(m_file.path(), milliseconds(m_errors.empty() ? 0 : 10'000));
        if (lock->isTaken()) {
            m_file.forget(); // if the writer dies, what it leaves stays as it is now, and must not pass for read
            return;
        }
    }
    RegistryFile::News news;
    readAgain(news);
    if (!news.loss.isNull()) {
        QThread::msleep(SavingInMilliseconds);
        readAgain(news);
    }
    if (!isDamaged(news))
        return;
    const QString words = damage(news);
    if (lock != nullptr && !lock->isHeld()) {
        m_errors.clear();
        m_isDamaged = true;
        warn(QStringLiteral("%1: %2; the file cannot be repaired: %3").arg(m_file.path(), words, lock->failure()));
        return;
    }
    QString copy;
    m_failure = m_file.keepCopy(copy);
    if (m_failure.isNull())
        m_failure = m_file.replace(snapshot());
    m_isDamaged = !m_failure.isNull();
    m_errors.clear();
    warn(QStringLiteral("%1: %2; ").arg(m_file.path(), words) +
         (m_failure.isNull() ? QStringLiteral("the file as it was is kept as %1").arg(QFileInfo(copy).fileName())
                             : m_failure));
}

// Somebody may have repaired it meanwhile. Of a file that is cut short in its first block every line counts that is
// there with its end.
void RegistryHive::readAgain(RegistryFile::News &news)
{
    m_file.forget();
    news = m_file.read();
    startAnew();
    const QByteArray lines =
        news.blocks.isEmpty() ? news.unfinished.first(news.unfinished.lastIndexOf('\n') + 1) : news.blocks;
    if (!lines.isEmpty())
        apply(lines, 1);
}

bool RegistryHive::isDamaged(const RegistryFile::News &news) const
{
    return !m_errors.empty() || !news.unfinished.isEmpty() || !news.loss.isNull();
}

// What is wrong with the file that was just read.
QString RegistryHive::damage(const RegistryFile::News &news) const
{
    if (m_errors.size() > 1)
        return QStringLiteral("line %1: %2 (and %3 more)")
            .arg(m_errors[0].line)
            .arg(m_errors[0].reason)
            .arg(m_errors.size() - 1);
    if (!m_errors.empty())
        return QStringLiteral("line %1: %2").arg(m_errors[0].line).arg(m_errors[0].reason);
    if (!news.loss.isNull())
        return news.loss;
    return news.blocks.isEmpty() ? QStringLiteral("the file is cut short")
                                 : QStringLiteral("the last change is not finished and does not count");
}

QString RegistryHive::beginChange()
{
    if (m_depth == 0) {
        const QString folder = QFileInfo(m_file.path()).absolutePath();
        QDir().mkpath(folder);
        m_lock = std::make_unique<FileLock>(m_file.path());
        if (m_lock->isHeld() && std::exchange(m_isDamaged, false))
            m_file.forget(); // it is read again and repaired now
        if (m_lock->isHeld())
            lookAtFile();
        const QString failure = m_lock->isHeld() ? m_failure : m_lock->failure();
        if (!failure.isNull()) {
            m_lock.reset();
            warn(failure);
            return failure;
        }
    }
    ++m_depth;
    return {};
}

// The values that follow in the text are this key's.
void RegistryHive::describe(RegistryKey &key)
{
    if (m_described != &key)
        m_change.addKey(pathOf(key));
    m_described = &key;
}

RegistryKey &RegistryHive::addKey(RegistryKey &parent, std::u16string_view path)
{
    RegistryKey &key = findOrAddKey(parent, path);
    describe(key);
    return key;
}

void RegistryHive::removeKey(RegistryKey &key)
{
    m_change.removeKey(pathOf(key));
    m_described = nullptr;
    key.parent->keys.remove(key.name);
    ++m_revision;
}

void RegistryHive::setValue(RegistryKey &key, std::u16string_view name, std::uint32_t type, const QByteArray &data)
{
    describe(key);
    m_change.setValue(name, type, data);
    ::setValue(key, name, type, data);
}

void RegistryHive::removeValue(RegistryKey &key, std::u16string_view name)
{
    describe(key);
    m_change.removeValue(name);
    key.values.remove(name);
}

QByteArray RegistryHive::snapshot() const
{
    RegistryTextWriter writer;
    describeKey(*m_root, writer);
    std::u16string text(RegistryTextHeader);
    text.append(Explanation).append(writer.text());
    return RegistryFile::finished(inUtf8(text));
}

QString RegistryHive::write()
{
    QString failure;
    if (m_file.isPrepared())
        failure = m_file.putInPlace();
    else if (m_file.isEmpty())
        failure = m_file.replace(snapshot());
    else
        failure = m_file.append(RegistryFile::finished(inUtf8(m_change.text())));
    if (!failure.isNull())
        return failure;
    m_notice.announce();
    // The changes are written: if this fails the file stays as long as it is.
    if (m_file.isGrown())
        m_file.replace(snapshot());
    return {};
}

QString RegistryHive::prepareChange()
{
    const QString failure = m_change.text().empty() ? QString() : m_file.prepare(snapshot());
    if (!failure.isNull())
        warn(failure);
    return failure;
}

QString RegistryHive::endChange()
{
    if (m_depth > 1) {
        --m_depth;
        return {};
    }
    const QString failure = m_change.text().empty() ? QString() : write();
    if (!failure.isNull()) {
        dropChanges();
        warn(failure);
        return failure;
    }
    m_depth = 0;
    m_change.clear();
    m_described = nullptr;
    m_lock.reset();
    return {};
}

void RegistryHive::dropChanges()
{
    m_depth = 0;
    m_change.clear();
    m_described = nullptr;
    m_file.forget();
    m_root.reset();
    ++m_revision;
    m_lock.reset();
}

// Once, while nothing else goes wrong: programs that go on would repeat it with every call.
void RegistryHive::warn(const QString &words)
{
    if (words != m_warned)
        qCritical("%s", qPrintable(words));
    m_warned = words;
}
