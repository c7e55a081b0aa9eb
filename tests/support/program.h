// A program that a test starts and watches.
#pragma once
#include <sys/types.h>

#include <string>
#include <vector>

namespace ostreltest {

class Program {
public:
    // Starts path with these arguments, standard output and standard error together in a pipe.
    Program(const std::string& path, std::vector<std::string> arguments);
    ~Program();  // ends it if it still runs
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    bool readUntil(const std::string& text);  // false when the output ends without it
    void signal(int number) const;
    int wait();  // reads the rest; the exit code, or minus the signal that ended it
    const std::string& output() const { return mOutput; }

private:
    bool readMore();

    pid_t mProcess;
    int mPipe;
    std::string mOutput;
};

}  // namespace ostreltest
