// FIFOs in place of files, watched from a thread: a reader that opens one, and so would wait
// for a writer for ever, is let go at once (it reads an empty file) and counted. A count of 0
// means nothing opened them. Header-only.
#pragma once

#include <QFile>
#include <QStringList>

#include <atomic>
#include <chrono>
#include <thread>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

class FifoWatch {
public:
    // Puts a FIFO at each of `paths` (replacing what is there) and starts watching.
    explicit FifoWatch(const QStringList& paths)
        : m_paths(paths) {
        for (const QString& path : m_paths) {
            QFile::remove(path);
            m_made &= ::mkfifo(QFile::encodeName(path).constData(), 0600) == 0;
        }
        m_thread = std::thread([this] {
            while (!m_stop) {
                for (const QString& path : m_paths) {
                    // Opening the writing end succeeds only while a reader has the FIFO open.
                    const int fd =
                        ::open(QFile::encodeName(path).constData(), O_WRONLY | O_NONBLOCK);
                    if (fd >= 0) {
                        ++m_opened;
                        ::close(fd);
                    }
                }
                std::this_thread::sleep_for(std::chrono::milliseconds(10));
            }
        });
    }
    ~FifoWatch() {
        m_stop = true;
        m_thread.join();
    }
    FifoWatch(const FifoWatch&) = delete;
    FifoWatch& operator=(const FifoWatch&) = delete;

    bool made() const { return m_made; }
    int opened() const { return m_opened; }

private:
    QStringList m_paths;
    bool m_made = true;
    std::atomic<bool> m_stop{false};
    std::atomic<int> m_opened{0};
    std::thread m_thread;
};
