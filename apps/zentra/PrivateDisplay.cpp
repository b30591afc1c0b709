#include "PrivateDisplay.h"

#include <QByteArray>
#include <QStandardPaths>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <string>
#include <thread>

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

// A server that has not told its display number in this time is taken as broken, so that the
// tool never hangs waiting for it.
const int start_timeout_ms = 15000;

/// True when an X server accepts connections for `display`. Only local displays (":N") are
/// probed through their socket; a remote one is trusted as given.
bool display_answers(const QByteArray& display) {
    if (display.isEmpty())
        return false;
    if (!display.startsWith(':'))
        return true;
    const QByteArray number = display.mid(1).split('.').first();
    const std::string path = "/tmp/.X11-unix/X" + number.toStdString();
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof(address.sun_path))
        return false;
    path.copy(address.sun_path, path.size());
    const int probe = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (probe < 0)
        return false;
    const bool answers = connect(probe, reinterpret_cast<sockaddr*>(&address), sizeof(address)) == 0;
    close(probe);
    return answers;
}

/// Reads the display number the server writes once it is ready; -1 on timeout or end of file.
int read_display_number(int fd) {
    std::string text;
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(start_timeout_ms);
    while (text.find('\n') == std::string::npos) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
        pollfd ready{fd, POLLIN, 0};
        if (left.count() <= 0 || poll(&ready, 1, static_cast<int>(left.count())) <= 0)
            return -1;
        char buffer[32];
        const ssize_t n = read(fd, buffer, sizeof(buffer));
        if (n <= 0)
            return -1;
        text.append(buffer, static_cast<std::size_t>(n));
    }
    char* end = nullptr;
    const long number = std::strtol(text.c_str(), &end, 10);
    return end != text.c_str() && number >= 0 ? static_cast<int>(number) : -1;
}

} // namespace

PrivateDisplay::~PrivateDisplay() { stop_server(); }

bool PrivateDisplay::ensure(const QSize& screen, QString* problem) {
    if (display_answers(qgetenv("DISPLAY")))
        return true;
    const QString program = QStandardPaths::findExecutable("Xvfb");
    if (program.isEmpty()) {
        *problem = "no X display to draw on: DISPLAY is unset or does not answer, and no virtual X server "
                   "(Xvfb) is installed. Install one (Debian: apt-get install xvfb) or run under an X server.";
        return false;
    }
    return start_server(program, screen, problem);
}

bool PrivateDisplay::start_server(const QString& program, const QSize& screen, QString* problem) {
    int pipe_ends[2];
    if (pipe2(pipe_ends, O_CLOEXEC) != 0) {
        *problem = "cannot start the virtual X server: no pipe";
        return false;
    }
    const std::string executable = program.toStdString();
    const std::string screen_text = std::to_string(screen.width()) + "x" + std::to_string(screen.height()) + "x24";
    const pid_t child = fork();
    if (child == 0) {
        // The server must not outlive the tool, whatever ends it.
        prctl(PR_SET_PDEATHSIG, SIGTERM);
        const int report = dup(pipe_ends[1]); // without close-on-exec, for the server to write to
        const int quiet = open("/dev/null", O_WRONLY);
        dup2(quiet, STDOUT_FILENO);
        dup2(quiet, STDERR_FILENO);
        const std::string report_fd = std::to_string(report);
        execl(executable.c_str(), "Xvfb", "-displayfd", report_fd.c_str(), "-screen", "0", screen_text.c_str(),
              "-nolisten", "tcp", static_cast<char*>(nullptr));
        _exit(127);
    }
    close(pipe_ends[1]);
    if (child < 0) {
        close(pipe_ends[0]);
        *problem = "cannot start the virtual X server: fork failed";
        return false;
    }
    _server = child;
    const int number = read_display_number(pipe_ends[0]);
    close(pipe_ends[0]);
    if (number < 0) {
        stop_server();
        *problem = QString("the virtual X server %1 did not start within %2 s").arg(program).arg(start_timeout_ms / 1000);
        return false;
    }
    qputenv("DISPLAY", QByteArray(":") + QByteArray::number(number));
    return true;
}

void PrivateDisplay::stop_server() {
    if (_server <= 0)
        return;
    kill(_server, SIGTERM);
    for (int waited_ms = 0; waited_ms < 3000; waited_ms += 20) {
        if (waitpid(_server, nullptr, WNOHANG) != 0) {
            _server = -1;
            return;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    kill(_server, SIGKILL);
    waitpid(_server, nullptr, 0);
    _server = -1;
}
