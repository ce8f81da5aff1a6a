#include "platform/RegistryHive.h"

#include <QDir>
#include <QFileInfo>

#include <optional>
#include <utility>

using std::chrono::milliseconds;

namespace {

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

// No program leaves a file so, not even for a moment.
bool lacksFirstBlock(const RegistryFile::News &news)
{
    return news.kind == RegistryFile::News::Kind::Everything && news.blocks.isEmpty();
}

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

void RegistryHive::lookAtFile()
{
    RegistryFile::News news = m_file.read();
    take(news);
    if (!m_failure.isNull()) {
        warn(m_failure);
    } else if (isDamaged(news) && m_lock != nullptr) {
        repair(news);
    } else if (isDamaged(news)) {
        report(news);
    } else if (news.kind != RegistryFile::News::Kind::None && std::exchange(m_isDamaged, false)) {
        m_warned.clear();
    }
    if (!m_isComplete)
        m_complete(*m_root);
    m_isComplete = true;
}

// Of a file that is cut short in its first block every line counts that is there with its end.
void RegistryHive::take(const RegistryFile::News &news)
{
    m_failure = news.failure;
    if (m_root == nullptr || news.kind == RegistryFile::News::Kind::Everything)
        startAnew();
    const QByteArray lines =
        lacksFirstBlock(news) ? news.unfinished.first(news.unfinished.lastIndexOf('\n') + 1) : news.blocks;
    if (!lines.isEmpty())
        apply(lines, news.firstLine);
}

// Reading writes nothing: an editor may be just saving the file, in place and without a lock, and what it still writes
// would go to a file that has been replaced.
void RegistryHive::report(RegistryFile::News &news)
{
    // A change that is not finished, or not in the history yet, may be the work of a process that is at it. Only the
    // lock tells.
    if (m_errors.empty() && !lacksFirstBlock(news)) {
        const FileLock lock(m_file.path(), milliseconds(0));
        m_file.forget(); // if the writer dies, what it leaves stays as it is now, and must not pass for read
        if (lock.isTaken())
            return;
        news = m_file.read();
        take(news);
        if (!isDamaged(news))
            return;
    }
    warn(QStringLiteral("%1: %2; the next change keeps the file under another name").arg(m_file.path(), damage(news)));
    leaveDamaged();
}

void RegistryHive::leaveDamaged()
{
    m_errors.clear();
    m_isDamaged = true;
    m_file.distrust();
}

void RegistryHive::repair(const RegistryFile::News &news)
{
    QString copy;
    m_failure = m_file.replaceKeepingCopy(snapshot(), copy);
    if (!m_failure.isNull()) {
        leaveDamaged();
        return;
    }
    warn(QStringLiteral("%1: %2; the file as it was is kept as %3")
             .arg(m_file.path(), damage(news), QFileInfo(copy).fileName()));
    m_errors.clear();
    m_isDamaged = false;
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
        if (m_lock->isHeld() && m_isDamaged)
            m_file.forget(); // it is read again, and repaired if it still is
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
