#include "host/embedded/reading/IsolatedReading.h"

#include <QtGlobal>

#ifdef Q_OS_UNIX

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdio>

namespace TC::embedded {

namespace {

constexpr unsigned kMostSeconds = 30;
constexpr rlim_t kMostMemory = 384u * 1024 * 1024; // bytes beyond what the process has already

/// A cell on its way through the pipe, followed by `length` UTF-16 units.
struct CellHeader
{
    std::int32_t row, column, length;
};

bool writeAll(int pipe, const void* data, std::size_t size)
{
    const char* from = static_cast<const char*>(data);
    while (size > 0) {
        const ssize_t written = write(pipe, from, size);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        from += written;
        size -= static_cast<std::size_t>(written);
    }
    return true;
}

/// Address space of this process in bytes.
rlim_t addressSpace()
{
    unsigned long pages = 0;
    if (std::FILE* file = std::fopen("/proc/self/statm", "r")) {
        if (std::fscanf(file, "%lu", &pages) != 1)
            pages = 0;
        std::fclose(file);
    }
    return pages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE));
}

/// The child's whole life. It leaves by _exit, so that nothing of the parent is torn down twice.
[[noreturn]] void runChild(int pipe, const std::function<void(SheetCells&)>& read)
{
    const rlim_t memory = addressSpace() + kMostMemory;
    const struct rlimit noCore = { 0, 0 }, bounded = { memory, memory };
    setrlimit(RLIMIT_CORE, &noCore);
    setrlimit(RLIMIT_AS, &bounded);
    for (const int signal : { SIGSEGV, SIGBUS, SIGFPE, SIGABRT, SIGALRM })
        std::signal(signal, SIG_DFL);
    alarm(kMostSeconds);
    const int nowhere = open("/dev/null", O_WRONLY);
    if (nowhere >= 0)
        dup2(nowhere, STDERR_FILENO); // the libraries' own remarks

    SheetCells cells;
    read(cells);
    const bool arrived = cells.forEach([&](int row, int column, const QString& text) {
        const CellHeader header { row, column, text.size() };
        return writeAll(pipe, &header, sizeof header)
            && writeAll(pipe, text.constData(), static_cast<std::size_t>(text.size()) * sizeof(QChar));
    });
    _exit(arrived && !cells.isRefused() ? 0 : 1);
}

/// Reads cells until the child closes its end.
void takeCells(std::FILE* from, SheetCells& cells)
{
    CellHeader header;
    while (std::fread(&header, sizeof header, 1, from) == 1) {
        QString text(header.length, Qt::Uninitialized);
        const std::size_t length = static_cast<std::size_t>(header.length);
        if (std::fread(text.data(), sizeof(QChar), length, from) != length)
            return;
        cells.setText(header.row, header.column, text);
    }
}

} // namespace

void readIsolated(const std::function<void(SheetCells&)>& read, SheetCells& cells)
{
    int ends[2];
    if (pipe(ends) != 0)
        return;
    const pid_t child = fork();
    if (child == 0) {
        close(ends[0]);
        runChild(ends[1], read);
    }
    close(ends[1]);
    if (std::FILE* from = fdopen(ends[0], "rb")) {
        if (child > 0)
            takeCells(from, cells);
        std::fclose(from);
    }
    int status = 1;
    while (child > 0 && waitpid(child, &status, 0) < 0 && errno == EINTR) { }
    if (child < 0 || !WIFEXITED(status) || WEXITSTATUS(status) != 0)
        cells.refuse();
}

} // namespace TC::embedded

#else

namespace TC::embedded {

void readIsolated(const std::function<void(SheetCells&)>& read, SheetCells& cells)
{
    read(cells);
}

} // namespace TC::embedded

#endif
