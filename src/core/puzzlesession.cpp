// The create and dictionary commands; see puzzlesession.h.
#include "core/puzzlesession.h"

#include "core/indexedgenerator.h"
#include "core/notifier.h"

#include <QCoreApplication>

namespace {

const QString kCritical = QStringLiteral("vbcritical+vbok");

QString failureMessage() {
    return QStringList{QStringLiteral("Unable to create a puzzle"),
                       QStringLiteral("The Dictionary may not have enough words for this puzzle"),
                       QStringLiteral("Will reinstate the words used already ..."),
                       QStringLiteral("Please try again")}
        .join(QStringLiteral("\r\n"));
}

} // namespace

// Marks the session busy for its lifetime.
class PuzzleSession::BusyScope {
public:
    explicit BusyScope(bool& busy)
        : m_busy(busy) {
        m_busy = true;
    }
    ~BusyScope() { m_busy = false; }
    BusyScope(const BusyScope&) = delete;
    BusyScope& operator=(const BusyScope&) = delete;

private:
    bool& m_busy;
};

PuzzleSession::PuzzleSession(Notifier* notifier, QObject* parent)
    : QObject(parent)
    , m_notifier(notifier)
    , m_wordList(notifier)
    , m_pump([] {
        if (QCoreApplication::instance())
            QCoreApplication::processEvents();
    })
    , m_loader(m_wordList, m_random, notifier) {
    m_loader.setEventPump(&m_pump);
    auto generator = std::make_unique<IndexedPuzzleGenerator>();
    generator->setEventPump(&m_pump);
    m_generator = std::move(generator);
}

PuzzleSession::~PuzzleSession() = default;

void PuzzleSession::setGenerator(std::unique_ptr<PuzzleGenerator> generator) {
    if (generator)
        m_generator = std::move(generator);
}

bool PuzzleSession::loadQuietly(const QString& path) {
    Q_EMIT waitPointerChanged(true);
    const bool loaded = m_loader.LoadDictionary(path);
    Q_EMIT waitPointerChanged(false);
    if (loaded)
        Q_EMIT dictionaryStatusChanged(m_loader.statusText(), m_loader.statusToolTip());
    return loaded;
}

bool PuzzleSession::LoadDictionary(const QString& path) {
    if (m_busy)
        return false;
    const BusyScope busy(m_busy);
    return loadQuietly(path);
}

bool PuzzleSession::openDictionary(const QString& path) {
    if (path.isEmpty() || m_busy)
        return false;
    const BusyScope busy(m_busy);
    if (!loadQuietly(path))
        return false;
    m_dictionaryPath = path;
    Q_EMIT boardCleared();
    Q_EMIT completionCheckStopped();
    return true;
}

void PuzzleSession::abandonSearch() {
    if (m_busy)
        m_pump.requestStop();
}

PuzzleSession::CreateOutcome PuzzleSession::createPuzzle() {
    if (m_busy)
        return CreateOutcome::Ignored;
    const BusyScope busy(m_busy);

    if (m_wordList.ListCount() == 0) {
        if (m_notifier)
            m_notifier->MsgboxA(QStringLiteral("No Dictioary Loaded"), kCritical);
        m_pump.runNow();
        return CreateOutcome::NoDictionary;
    }

    Q_EMIT waitPointerChanged(true);
    Q_EMIT completionCheckStopped();
    Q_EMIT tilesCleared();
    Q_EMIT boardEnabledChanged(false);
    m_pump.clearStop();
    m_lastGeneration = m_generator->generate(m_wordList, m_grid);
    m_pump.clearStop();
    Q_EMIT boardEnabledChanged(true);

    if (m_lastGeneration.abandoned) {
        Q_EMIT waitPointerChanged(false);
        return CreateOutcome::Abandoned;
    }

    if (!m_lastGeneration.success) {
        Q_EMIT waitPointerChanged(false);
        if (m_notifier)
            m_notifier->MsgboxA(failureMessage(), kCritical);
        m_pump.runNow();
        loadQuietly(m_dictionaryPath);
        m_pump.runNow();
        return CreateOutcome::Failed;
    }
    m_grid.SelectedWord = -1;
    Q_EMIT puzzleCreated();
    Q_EMIT waitPointerChanged(false);
    return CreateOutcome::Created;
}
