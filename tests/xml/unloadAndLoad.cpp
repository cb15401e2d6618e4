// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// unloadAndLoad PLUGIN: loads the plugin and with it the library, converts a record, unloads both, all of it
// twice, and ends.

#include <dlfcn.h>

#include <cstdio>

namespace {
    bool Fail(const char* what) {
        std::printf("%s\n", what);
        return false;
    }

    bool LoadConvertAndUnload(const char* path) {
        void* const plugin = dlopen(path, RTLD_NOW | RTLD_LOCAL);
        if (!plugin)
            return Fail(dlerror()); // NOLINT(concurrency-mt-unsafe)
        const auto convert = reinterpret_cast<bool (*)()>(dlsym(plugin, "nxPluginConvert"));
        if (!convert || !convert())
            return Fail("not converted");
        return dlclose(plugin) == 0 || Fail("not closed");
    }
} // namespace

int main(int argc, char** argv) {
    return argc == 2 && LoadConvertAndUnload(argv[1]) && LoadConvertAndUnload(argv[1]) ? 0 : 1;
}
