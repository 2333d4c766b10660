// Runs a fuzz target over every file of the folders given: the seed corpus and the inputs
// that once crashed a reader, so that a normal test run finds a fault that comes back.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv) {
    int files = 0;
    for (int i = 1; i < argc; ++i) {
        std::error_code error;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(argv[i], error)) {
            if (!entry.is_regular_file())
                continue;
            std::ifstream file(entry.path(), std::ios::binary);
            const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()),
                                   bytes.size());
            ++files;
        }
    }
    std::printf("%d inputs replayed\n", files);
    return files > 0 ? 0 : 1;
}
