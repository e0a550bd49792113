// The create and dictionary commands; see puzzlesession.h.
#include "core/puzzlesession.h"

#include "core/indexedgenerator.h"
#include "core/notifier.h"
#include "core/scopedcount.h"

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

bool PuzzleSession::loadQuietly(const QString& path) {
    Q_EMIT waitPointerChanged(true);
    m_loading = true;
    const bool loaded = m_loader.LoadDictionary(path);
    m_loading = false;
    m_pump.clearStop();
    if (loaded || m_wordList.ListCount() == 0)
        m_generator->forgetWordList(); // its index describes a list that is gone
    Q_EMIT waitPointerChanged(false);
    if (loaded)
        Q_EMIT dictionaryStatusChanged(m_loader.statusText(), m_loader.statusToolTip());
    return loaded;
}

bool PuzzleSession::LoadDictionary(const QString& path) {
    if (m_busy)
        return false;
    const ScopedCount busy(m_busy);
    return loadQuietly(path);
}

bool PuzzleSession::openDictionary(const QString& path) {
    if (path.isEmpty() || m_busy)
        return false;
    const ScopedCount busy(m_busy);
    if (!loadQuietly(path))
        return false;
    m_dictionaryPath = path;
    return true;
}

void PuzzleSession::abandonWork() {
    if (m_busy)
        m_pump.requestStop();
}

void PuzzleSession::abandonSearch() {
    if (m_busy && !m_loading)
        m_pump.requestStop();
}

PuzzleSession::CreateOutcome PuzzleSession::createPuzzle(const SearchHook& onSearch) {
    if (m_busy)
        return CreateOutcome::Ignored;
    const ScopedCount busy(m_busy);

    if (m_wordList.ListCount() == 0) {
        if (m_notifier)
            m_notifier->MsgboxA(QStringLiteral("No Dictioary Loaded"), kCritical);
        m_pump.runNow();
        return CreateOutcome::NoDictionary;
    }

    Q_EMIT waitPointerChanged(true);
    if (onSearch)
        onSearch(true);
    m_pump.clearStop();
    m_lastGeneration = m_generator->generate(m_wordList, m_grid);
    m_pump.clearStop();
    if (onSearch)
        onSearch(false);

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
    Q_EMIT waitPointerChanged(false);
    return CreateOutcome::Created;
}
