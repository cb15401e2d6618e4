// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxFileHelper.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

namespace {
    constexpr mode_t DefaultMode =
        S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH; // less the umask

    std::string LastProblem() {
        return std::error_code(errno, std::generic_category()).message();
    }

    class FileDescriptor {
    public:
        explicit FileDescriptor(int descriptor) : _descriptor(descriptor) {}
        ~FileDescriptor() { Close(); }
        FileDescriptor(const FileDescriptor&) = delete;
        FileDescriptor& operator=(const FileDescriptor&) = delete;

        bool IsOpen() const { return _descriptor >= 0; }
        int Get() const { return _descriptor; }
        // False when the system reports only now that something was not written.
        bool Close() { return !IsOpen() || ::close(std::exchange(_descriptor, -1)) == 0; }

    private:
        int _descriptor;
    };

    bool ReadAll(int descriptor, std::string& contents) {
        std::array<char, 1U << 16U> buffer;
        for (;;) {
            const ssize_t count = ::read(descriptor, buffer.data(), buffer.size());
            if (count == 0)
                return true;
            if (count > 0)
                contents.append(buffer.data(), static_cast<std::size_t>(count));
            else if (errno != EINTR)
                return false;
        }
    }

    bool WriteAll(int descriptor, std::string_view contents) {
        while (!contents.empty()) {
            const ssize_t count = ::write(descriptor, contents.data(), contents.size());
            if (count > 0)
                contents.remove_prefix(static_cast<std::size_t>(count));
            else if (count == 0 || errno != EINTR)
                return false;
        }
        return true;
    }

    bool WriteInPlace(const std::string& path, std::string_view contents) {
        FileDescriptor file(::open(path.c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC));
        return file.IsOpen() && WriteAll(file.Get(), contents) && file.Close();
    }

    // Whether it is the place that allows no file to be put there: the folder may not be written to, or the
    // file is a mount of its own. The file itself may be open to writing all the same.
    bool IsPlaceClosed(int problem) {
        constexpr std::array Closed = {EACCES, EPERM, EROFS, EBUSY, EXDEV};
        return std::ranges::find(Closed, problem) != Closed.end();
    }

    // A file of its own beside `path`, open for writing; closed when there is none to be had.
    struct BesideFile {
        std::string path;
        FileDescriptor descriptor;
    };
    BesideFile OpenBeside(const std::string& path, mode_t mode) {
        static std::atomic<unsigned int> count = 0;
        const std::filesystem::path folder = std::filesystem::path(path).parent_path();
        for (;;) { // a name of its own, since the file's may leave no room for more
            const std::string name =
                ".nx-" + std::to_string(::getpid()) + "-" + std::to_string(++count) + ".tmp";
            std::string beside = (folder / name).native();
            const int descriptor = ::open(beside.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
            if (descriptor >= 0 || errno != EEXIST)
                return {std::move(beside), FileDescriptor(descriptor)};
        }
    }

    bool WriteBesideAndRename(const std::string& path, std::string_view contents,
                              std::optional<mode_t> mode) {
        // Never open to more people than the file itself, even for a moment.
        BesideFile beside = OpenBeside(path, mode.value_or(DefaultMode));
        FileDescriptor& file = beside.descriptor;
        if (!file.IsOpen())
            return false;

        const bool written = WriteAll(file.Get(), contents) && (!mode || ::fchmod(file.Get(), *mode) == 0) &&
                             ::fsync(file.Get()) == 0 && file.Close() &&
                             ::rename(beside.path.c_str(), path.c_str()) == 0;
        if (written)
            return true;
        const int problem = errno;
        ::unlink(beside.path.c_str());
        errno = problem;
        return false;
    }

    // The system would take the path for cut off at a NUL.
    bool IsUsable(const std::string& path) {
        errno = EINVAL;
        return path.find('\0') == std::string::npos;
    }

    bool WriteFile(const std::string& path, std::string_view contents) {
        struct stat status = {};
        if (::stat(path.c_str(), &status) != 0)
            return errno == ENOENT && WriteBesideAndRename(path, contents, std::nullopt);
        if (!S_ISREG(status.st_mode))
            return WriteInPlace(path, contents);

        std::error_code error;
        const std::filesystem::path place = std::filesystem::canonical(path, error); // behind symbolic links
        if (error) {
            errno = error.value();
            return false;
        }
        if (WriteBesideAndRename(place.native(), contents, status.st_mode & 07777U))
            return true;
        return IsPlaceClosed(errno) && WriteInPlace(place.native(), contents);
    }
} // namespace

nxErrorEnum nxFileHelper::Read(const std::string& path, std::string& contents, std::string& problem) {
    const FileDescriptor file(IsUsable(path) ? ::open(path.c_str(), O_RDONLY | O_CLOEXEC) : -1);
    std::string read;
    if (!file.IsOpen() || !ReadAll(file.Get(), read)) {
        problem = LastProblem();
        return nxErrorEnum::InputNotUsable;
    }
    contents = std::move(read);
    return nxErrorEnum::OK;
}

nxErrorEnum nxFileHelper::Write(const std::string& path, std::string_view contents, std::string& problem) {
    if (IsUsable(path) && WriteFile(path, contents))
        return nxErrorEnum::OK;
    problem = LastProblem();
    return nxErrorEnum::OutputNotWritten;
}
