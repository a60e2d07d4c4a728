#include "support/process/ChildProcess.h"

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

int RunInChild(const std::function<int()>& function) {
    constexpr int kException = 99;
    const pid_t child = fork();
    if (child == 0) {
        int code = kException;
        try {
            code = function();
        } catch (...) {
            code = kException;
        }
        _exit(code);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status);
}

void KillThisProcess() {
    raise(SIGKILL);
    _exit(1);
}
