// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// Stands in for libFuzzer where there is none: hands a fuzzer every file of the folders on its command line.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {
    void Replay(const std::filesystem::path& path) {
        std::ifstream file(path, std::ios::binary);
        file.exceptions(std::ios::badbit);
        const std::string input{std::istreambuf_iterator<char>(file), {}};
        std::printf("%s\n", path.c_str());
        std::fflush(stdout); // before the input that ends the process
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
    }

    int ReplayFolders(int count, char** folders) {
        int replayed = 0;
        for (int i = 0; i < count; ++i) {
            for (const auto& entry : std::filesystem::directory_iterator(folders[i])) {
                Replay(entry.path());
                ++replayed;
            }
        }
        return replayed;
    }
} // namespace

int main(int argc, char** argv) {
    try {
        const int replayed = ReplayFolders(argc - 1, argv + 1);
        std::printf("%d inputs replayed\n", replayed);
        return replayed > 0 ? 0 : 1;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
