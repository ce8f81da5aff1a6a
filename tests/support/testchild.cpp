// A program for tests to start. testchild FILE ARGUMENT... writes its arguments behind the first to the file, one a
// line, and ends with 0; "exit:N" ends it with N, "wait:N" lets it run N milliseconds longer. "-" for FILE: no file.
// When the environment has TESTCHILD_FILE, that is the file, and all arguments are written.

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>
#include <thread>

// Complete as soon as it is there. On Windows it cannot be put there while somebody reads what is there now.
static void putInPlace(const std::string &partial, const std::string &report)
{
    std::error_code failed;
    for (int attempt = 0; attempt < 100; ++attempt) {
        std::filesystem::rename(partial, report, failed);
        if (!failed)
            return;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
}

int main(int count, char **arguments)
{
    int status = 0;
    std::string text;
    const char *const given = std::getenv("TESTCHILD_FILE");
    for (int i = given != nullptr ? 1 : 2; i < count; ++i) {
        text += std::string(arguments[i]) + '\n';
        if (std::strncmp(arguments[i], "exit:", 5) == 0)
            status = std::atoi(arguments[i] + 5);
        if (std::strncmp(arguments[i], "wait:", 5) == 0)
            std::this_thread::sleep_for(std::chrono::milliseconds(std::atoi(arguments[i] + 5)));
    }
    const std::string report = given != nullptr ? given : count > 1 ? arguments[1] : "-";
    if (report == "-")
        return status;
    const std::string partial = report + ".part";
    if (std::FILE *file = std::fopen(partial.c_str(), "wb")) {
        std::fputs(text.c_str(), file);
        std::fclose(file);
        putInPlace(partial, report);
    }
    return status;
}
