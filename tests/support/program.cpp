#include "tests/support/program.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <iterator>

namespace velmora::test {

namespace {

std::string contentOf(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

} // namespace

ProgramResult runProgram(const std::string& path, const std::vector<std::string>& arguments)
{
    const TemporaryFolder folder;
    const std::string out = folder.file("out");
    const std::string err = folder.file("err");
    std::vector<char*> argv{const_cast<char*>(path.c_str())};
    for (const std::string& argument : arguments) argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);

    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, out.c_str(), O_WRONLY | O_CREAT, 0600);
    posix_spawn_file_actions_addopen(&files, STDERR_FILENO, err.c_str(), O_WRONLY | O_CREAT, 0600);
    pid_t child = 0;
    const int failed = posix_spawn(&child, path.c_str(), &files, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&files);

    ProgramResult result;
    int status = 0;
    if (!failed && waitpid(child, &status, 0) == child && WIFEXITED(status))
        result.status = WEXITSTATUS(status);
    result.out = contentOf(out);
    result.err = contentOf(err);
    return result;
}

} // namespace velmora::test
