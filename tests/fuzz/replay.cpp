#include "tests/fuzz/fuzz.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

/// Runs a target over its corpus, or over the files that are named: with any compiler.
int main(int count, char* arguments[])
{
    std::vector<std::filesystem::path> files(arguments + 1, arguments + count);
    if (files.empty())
        for (const auto& entry : std::filesystem::directory_iterator(KLV_FUZZ_CORPUS))
            files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    for (const auto& path : files) {
        std::fprintf(stderr, "%s\n", path.filename().c_str());
        std::ifstream file(path, std::ios::binary);
        const std::string bytes((std::istreambuf_iterator<char>(file)), {});
        run(Bytes(bytes));
    }
    std::printf("%zu inputs\n", files.size());
    return files.empty() ? 1 : 0;
}
