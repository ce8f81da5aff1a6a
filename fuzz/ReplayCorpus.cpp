// Runs every file of the folders on the command line through the fuzz target; for builds without libFuzzer.

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

int main(int argumentCount, char **arguments)
{
    std::size_t count = 0;
    for (int i = 1; i < argumentCount; ++i) {
        for (const auto &entry : std::filesystem::directory_iterator(arguments[i])) {
            std::ifstream file(entry.path(), std::ios::binary);
            const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(bytes.data()), bytes.size());
            ++count;
        }
    }
    std::printf("%zu inputs\n", count);
    return count == 0; // an empty corpus is a mistake in the build
}
