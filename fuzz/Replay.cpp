// Runs a target over the files that are named and those of the directories that are: what the
// corpora in the tree are for where no fuzzer is built.

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

void Run(const std::filesystem::path& path)
{
    std::cout << path.string() << std::endl;  // which one, should it be the last
    std::ifstream file(path, std::ios::binary);
    const std::string octets(std::istreambuf_iterator<char>(file), {});
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(octets.data()), octets.size());
}

}  // namespace

int main(int argc, char** argv)
{
    namespace fs = std::filesystem;
    int count = 0;
    for (int i = 1; i < argc; ++i) {
        if (!fs::is_directory(argv[i])) {
            Run(argv[i]);
            ++count;
            continue;
        }
        for (const fs::directory_entry& entry : fs::directory_iterator(argv[i])) {
            Run(entry.path());
            ++count;
        }
    }
    return count > 0 ? 0 : 1;
}
