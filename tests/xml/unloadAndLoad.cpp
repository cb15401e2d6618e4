// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// A host that loads plugins which use the library, and does not use it itself. It uses the parser, before,
// between and after.
//
// usage: unload-and-load PLUGIN REGISTERING-PLUGIN

#include <dlfcn.h>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/parsers/SAXParser.hpp>
#include <xercesc/util/PlatformUtils.hpp>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

namespace {
    // Ends the program unless it holds.
    void Expect(bool holds, const char* what) {
        if (holds)
            return;
        std::printf("not so: %s\n", what);
        std::exit(1); // NOLINT(concurrency-mt-unsafe): there is one thread
    }

    bool IsMapped(const std::string& library) {
        std::ifstream maps("/proc/self/maps");
        for (std::string line; std::getline(maps, line);) {
            if (line.find(library) != std::string::npos)
                return true;
        }
        return false;
    }

    long ResidentPages() {
        long all = 0;
        long resident = 0;
        std::ifstream("/proc/self/statm") >> all >> resident;
        return resident;
    }

    void* Open(const char* path) {
        void* const plugin = ::dlopen(path, RTLD_NOW | RTLD_LOCAL);
        Expect(plugin != nullptr, "the plugin is loaded");
        return plugin;
    }

    template <class Function>
    Function* Find(void* plugin, const char* name) {
        auto* const function = reinterpret_cast<Function*>(::dlsym(plugin, name));
        Expect(function != nullptr, name);
        return function;
    }

    void LoadConvertAndUnload(const char* path) {
        void* const plugin = Open(path);
        Expect(Find<bool()>(plugin, "nxPluginConvert")(), "the plugin converts");
        Expect(::dlclose(plugin) == 0, "the plugin is closed");
        Expect(!IsMapped("libXMLFramework") && !IsMapped("libnxcore"), "the libraries are unloaded");
    }

    void Parse() {
        constexpr char Text[] = "<a/>";
        const xercesc::MemBufInputSource source(reinterpret_cast<const XMLByte*>(Text), sizeof Text - 1,
                                                "text");
        xercesc::SAXParser().parse(source);
    }

    void LoadInEveryOrderWithTheParser(const char* path) {
        LoadConvertAndUnload(path);
        xercesc::XMLPlatformUtils::Initialize();
        Parse();
        LoadConvertAndUnload(path);
        Parse();
        void* const plugin = Open(path);
        Parse();
        xercesc::XMLPlatformUtils::Terminate();
        Expect(Find<bool()>(plugin, "nxPluginConvert")(),
               "the plugin converts after the host is done with parsing");
        xercesc::XMLPlatformUtils::Initialize();
        ::dlclose(plugin);
        Parse();
        xercesc::XMLPlatformUtils::Terminate();
        LoadConvertAndUnload(path);
    }

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    constexpr bool OwnsItsMemory = false; // the sanitizer keeps some for each library that was there
#else
    constexpr bool OwnsItsMemory = true;
#endif

    // Prototypes stay for good, also those of a library that is gone: some 2 KB each time.
    void LoadOftenInBoundedMemory(const char* path) {
        constexpr int Times = 1000;
        constexpr long MaxPages = Times; // 4 KB each
        const long before = ResidentPages();
        for (int i = 0; i < Times; ++i)
            LoadConvertAndUnload(path);
        Expect(!OwnsItsMemory || ResidentPages() - before < MaxPages, "memory stays");
    }

    void KeepWhatRegisters(const char* path, const char* registeringPath) {
        void* const plugin = Open(path);
        ::dlclose(Open(registeringPath));
        Expect(Find<bool(unsigned int)>(plugin, "nxPluginCreate")(0x504C5547),
               "the record of a plugin that was closed is made");
        ::dlclose(plugin);
    }
} // namespace

int main(int argc, char** argv) {
    if (argc != 3)
        return 2;
    LoadInEveryOrderWithTheParser(argv[1]);
    LoadOftenInBoundedMemory(argv[1]);
    KeepWhatRegisters(argv[1], argv[2]);
    return 0;
}
