// FIFOs in place of files, watched from a thread: a reader that opens one is let go at once
// (it reads an empty file) and counted.
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
    explicit FifoWatch(const QStringList& paths)
        : m_paths(paths) {
        for (const QString& path : m_paths) {
            QFile::remove(path);
            ::mkfifo(QFile::encodeName(path).constData(), 0600);
        }
        m_thread = std::thread([this] {
            while (!m_stop) {
                for (const QString& path : m_paths) {
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
    int opened() const { return m_opened; }

private:
    QStringList m_paths;
    std::atomic<bool> m_stop{false};
    std::atomic<int> m_opened{0};
    std::thread m_thread;
};
