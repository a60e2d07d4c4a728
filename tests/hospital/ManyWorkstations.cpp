#include "ManyWorkstations.h"

#include <array>
#include <cstdio>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

/// A pipe that carries nothing: who awaits it hears when every process has closed its writing end.
class Signal {
  public:
    Signal() {
        if (pipe(mEnds.data()) != 0)
            throw std::runtime_error("no pipe");
    }
    Signal(const Signal&) = delete;
    Signal& operator=(const Signal&) = delete;
    ~Signal() {
        Close(0);
        Close(1);
    }

    void Give() { Close(1); }
    void Await() {
        Give();
        char nothing = 0;
        while (read(mEnds[0], &nothing, 1) > 0) {
        }
    }

  private:
    void Close(size_t end) {
        if (mEnds[end] >= 0)
            close(mEnds[end]);
        mEnds[end] = -1;
    }

    std::array<int, 2> mEnds{};
};

/// Runs in the child; gives its exit code.
int RunWork(const std::function<void()>& work) {
    try {
        work();
        return 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "a workstation failed: %s\n", failure.what());
    }
    return 1;
}

bool HasDone(pid_t child) {
    int status = 0;
    return waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

} // namespace

std::vector<bool> ManyWorkstations::RunAtOnce(const std::vector<std::pair<QString, Work>>& works) {
    // No connection survives a fork.
    const QString user = u"NURSE"_s;
    mGateway.reset();
    Signal ready;
    Signal start;
    std::vector<pid_t> children;
    for (const auto& [who, work] : works) {
        const pid_t child = fork();
        if (child == 0) {
            start.Give();
            const auto meet = [&ready, &start] {
                ready.Give();
                start.Await();
            };
            _exit(RunWork([this, &who = who, &work = work, &meet] { work(*SignOn(who), meet); }));
        }
        children.push_back(child);
    }
    ready.Await();
    start.Give();
    std::vector<bool> done;
    for (const pid_t child : children)
        done.push_back(HasDone(child));
    mGateway = SignOn(user);
    return done;
}
