// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxFileHelper.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
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
        FileDescriptor(FileDescriptor&& other) noexcept : _descriptor(std::exchange(other._descriptor, -1)) {}
        FileDescriptor& operator=(FileDescriptor&&) = delete;

        bool IsOpen() const { return _descriptor >= 0; }
        int Get() const { return _descriptor; }
        // False when the system reports only now that something was not written.
        bool Close() { return !IsOpen() || ::close(std::exchange(_descriptor, -1)) == 0; }

    private:
        int _descriptor;
    };

    // The result of a system call that a signal did not cut short.
    template <class Call>
    auto Uninterrupted(const Call& call) {
        for (;;) {
            const auto result = call();
            if (result != -1 || errno != EINTR)
                return result;
        }
    }

    FileDescriptor Open(const std::string& path, int flags, mode_t mode = 0) {
        return FileDescriptor(Uninterrupted([&] { return ::open(path.c_str(), flags | O_CLOEXEC, mode); }));
    }

    bool ReadAll(int descriptor, std::string& contents) {
        std::array<char, 1U << 16U> buffer;
        for (;;) {
            const ssize_t count =
                Uninterrupted([&] { return ::read(descriptor, buffer.data(), buffer.size()); });
            if (count <= 0)
                return count == 0;
            contents.append(buffer.data(), static_cast<std::size_t>(count));
        }
    }

    bool WriteAll(int descriptor, std::string_view contents) {
        while (!contents.empty()) {
            const ssize_t count =
                Uninterrupted([&] { return ::write(descriptor, contents.data(), contents.size()); });
            if (count <= 0)
                return false;
            contents.remove_prefix(static_cast<std::size_t>(count));
        }
        return true;
    }

    bool WriteInPlace(const std::string& path, std::string_view contents) {
        FileDescriptor file = Open(path, O_WRONLY | O_TRUNC);
        return file.IsOpen() && WriteAll(file.Get(), contents) && file.Close();
    }

    // Whether it is the place that allows no file to be put there: the folder may not be written to, or the
    // file is a mount of its own, or no other can have its access list there. The file itself may be open to
    // writing all the same.
    bool IsPlaceClosed(int problem) {
        constexpr std::array Closed = {EACCES, EPERM, EROFS, EBUSY, EXDEV, EOPNOTSUPP, EINVAL};
        return std::ranges::find(Closed, problem) != Closed.end();
    }

    void Remove(const std::string& path) {
        const int problem = errno;
        ::unlink(path.c_str());
        errno = problem;
    }

    // Who may do what with a file: for one that takes its place.
    struct Access {
        mode_t mode;
        uid_t owner;
        gid_t group;
        std::string list; // of users and groups besides, as the system has it; mostly empty
    };
    constexpr char AccessList[] = "system.posix_acl_access";

    bool HasNoList() {
        return errno == ENODATA || errno == EOPNOTSUPP;
    }
    bool ReadAccessList(const std::string& path, std::string& list) {
        constexpr std::size_t Longest = 1U << 16U; // that the system allows
        list.resize(Longest);
        const ssize_t size =
            Uninterrupted([&] { return ::getxattr(path.c_str(), AccessList, list.data(), list.size()); });
        const bool isRead = size >= 0 || HasNoList();
        list.resize(size >= 0 ? static_cast<std::size_t>(size) : 0);
        return isRead;
    }
    // A new file may have a list from its folder.
    bool SetAccessList(int descriptor, const std::string& list) {
        if (list.empty())
            return Uninterrupted([&] { return ::fremovexattr(descriptor, AccessList); }) == 0 || HasNoList();
        return Uninterrupted(
                   [&] { return ::fsetxattr(descriptor, AccessList, list.data(), list.size(), 0); }) == 0;
    }
    // Owner and group as far as the process may set them.
    bool SetOwner(int descriptor, const Access& access, struct stat& status) {
        if (::fstat(descriptor, &status) != 0)
            return false;
        constexpr auto Same = static_cast<uid_t>(-1);
        if (status.st_uid != access.owner && ::fchown(descriptor, access.owner, access.group) == 0)
            return ::fstat(descriptor, &status) == 0;
        if (status.st_gid != access.group && ::fchown(descriptor, Same, access.group) == 0)
            status.st_gid = access.group;
        return true;
    }
    bool Grant(int descriptor, const Access& access) {
        struct stat status = {};
        if (!SetOwner(descriptor, access, status))
            return false;
        mode_t mode = access.mode;
        if (status.st_uid != access.owner) // nobody is to run it as somebody else than before
            mode &= ~static_cast<mode_t>(S_ISUID);
        if (status.st_gid != access.group) { // what the one group may do is no affair of another
            mode &= ~static_cast<mode_t>(S_ISGID | S_IRWXG);
            if (!access.list.empty()) {
                errno = EPERM;
                return false;
            }
        }
        return SetAccessList(descriptor, access.list) &&
               Uninterrupted([&] { return ::fchmod(descriptor, mode); }) == 0;
    }
    // Never open to more people than in the end, even for a moment.
    mode_t FirstMode(const std::optional<Access>& access) {
        return access ? access->mode & S_IRWXU : DefaultMode;
    }

    // What came of a new file. NotPut: nobody was able to make it or to put it in its place, and another way
    // may go better. NotWritten: the disk does not take the contents, and would not in place either.
    enum class Outcome { Done, NotPut, NotWritten };

    Outcome Fill(int descriptor, std::string_view contents, const std::optional<Access>& access) {
        if (!WriteAll(descriptor, contents))
            return Outcome::NotWritten;
        if (access && !Grant(descriptor, *access))
            return Outcome::NotPut;
        // Says all that closing the file could say.
        return Uninterrupted([&] { return ::fsync(descriptor); }) == 0 ? Outcome::Done : Outcome::NotWritten;
    }

    // Gives a nameless file, which is complete, the name `path`. No call does that while the name is taken,
    // so for a moment it has another first: the same for all who write `path`, so that one which a killed
    // process left there goes with the next writing. Two at once may put each other's file in its place,
    // a whole one for it all the same; who then misses his own is told to try another way.
    bool PutInPlace(int descriptor, const std::string& path) {
        const std::filesystem::path place(path);
        const std::string waiting =
            (place.parent_path() / ("." + place.filename().native() + ".nx-new")).native();
        const std::string file = "/proc/self/fd/" + std::to_string(descriptor);
        const auto link = [&] {
            return ::linkat(AT_FDCWD, file.c_str(), AT_FDCWD, waiting.c_str(), AT_SYMLINK_FOLLOW) == 0;
        };
        if (!link() && (errno != EEXIST || ::unlink(waiting.c_str()) != 0 || !link()))
            return false;
        if (::rename(waiting.c_str(), path.c_str()) == 0)
            return true;
        Remove(waiting);
        return false;
    }

    // A file that has no name until it is complete goes by itself when its process is killed. Not all file
    // systems know such files.
    Outcome WriteNameless(const std::string& path, std::string_view contents,
                          const std::optional<Access>& access) {
        const std::string folder = std::filesystem::path(path).parent_path().native();
        const FileDescriptor file =
            Open(folder.empty() ? "." : folder, O_WRONLY | O_TMPFILE, FirstMode(access));
        if (!file.IsOpen())
            return Outcome::NotPut;
        const Outcome outcome = Fill(file.Get(), contents, access);
        if (outcome != Outcome::Done)
            return outcome;
        return PutInPlace(file.Get(), path) ? Outcome::Done : Outcome::NotPut;
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
            FileDescriptor descriptor = Open(beside, O_WRONLY | O_CREAT | O_EXCL, mode);
            if (descriptor.IsOpen() || errno != EEXIST)
                return {std::move(beside), std::move(descriptor)};
        }
    }

    Outcome WriteNamed(const std::string& path, std::string_view contents,
                       const std::optional<Access>& access) {
        const BesideFile beside = OpenBeside(path, FirstMode(access));
        if (!beside.descriptor.IsOpen())
            return Outcome::NotPut;
        Outcome outcome = Fill(beside.descriptor.Get(), contents, access);
        if (outcome == Outcome::Done && ::rename(beside.path.c_str(), path.c_str()) != 0)
            outcome = Outcome::NotPut;
        if (outcome != Outcome::Done)
            Remove(beside.path);
        return outcome;
    }

    Outcome WriteBeside(const std::string& path, std::string_view contents,
                        const std::optional<Access>& access) {
        const Outcome outcome = WriteNameless(path, contents, access);
        return outcome == Outcome::NotPut ? WriteNamed(path, contents, access) : outcome;
    }

    // The system would take the path for cut off at a NUL.
    bool IsUsable(const std::string& path) {
        errno = EINVAL;
        return path.find('\0') == std::string::npos;
    }

    bool WriteFile(const std::string& path, std::string_view contents) {
        struct stat status = {};
        if (::stat(path.c_str(), &status) != 0)
            return errno == ENOENT && WriteBeside(path, contents, std::nullopt) == Outcome::Done;
        if (!S_ISREG(status.st_mode))
            return WriteInPlace(path, contents);
        // To put another file in its place, nobody is asked for the right to write this one.
        if (::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0)
            return false;

        std::error_code error;
        const std::filesystem::path place = std::filesystem::canonical(path, error); // behind symbolic links
        if (error) {
            errno = error.value();
            return false;
        }
        Access access{status.st_mode & 07777U, status.st_uid, status.st_gid, {}};
        if (!ReadAccessList(path, access.list))
            return false;
        const Outcome outcome = WriteBeside(place.native(), contents, access);
        if (outcome != Outcome::NotPut)
            return outcome == Outcome::Done;
        return IsPlaceClosed(errno) && WriteInPlace(place.native(), contents);
    }
} // namespace

nxErrorEnum nxFileHelper::Read(const std::string& path, std::string& contents, std::string& problem) {
    const FileDescriptor file = IsUsable(path) ? Open(path, O_RDONLY) : FileDescriptor(-1);
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
