#include "platform/editfile.h"

#include "platform/atomicfile.h"

#include <cerrno>

namespace platform {

namespace {

/// The file as it was found, and what the edit makes of it.
struct Attempt {
    Result<std::string> found;
    Result<Edited> edited;

    bool changesAnything() const { return edited && edited->bytes && !(found && *found == *edited->bytes); }
};

bool areSame(const Result<std::string>& one, const Result<std::string>& other) {
    return one.code() == other.code() && (!one || *one == *other);
}

Result<FileEdited> replace(AtomicFile& file, Edited edited) {
    FileEdited done{.isWritten = true};
    if (!edited.suffixOfFormer.empty()) {
        auto moved = file.moveAside(edited.suffixOfFormer);
        if (!moved)
            return moved.error();
        done.former = std::move(*moved);
    }
    if (const auto written = file.write(*edited.bytes); !written) {
        if (!done.former.empty())
            file.moveBack(done.former);
        return written.error();
    }
    done.bytes = std::move(*edited.bytes);
    return done;
}

} // namespace

Result<FileEdited> editFile(const std::string& path, LockPatience& patience, const EditOptions& options,
                            const FileEdit& edit) {
    std::optional<Attempt> attempt;
    const auto look = [&] {
        auto found = readFile(path, options.limit);
        if (!attempt || !areSame(found, attempt->found)) {
            auto edited = edit(found);
            attempt.emplace(Attempt{std::move(found), std::move(edited)});
        }
        return attempt->changesAnything();
    };
    const auto outcome = [&]() -> Result<FileEdited> {
        if (!attempt->edited)
            return attempt->edited.error();
        return FileEdited{.bytes = attempt->found ? std::move(*attempt->found) : std::string()};
    };
    if (options.looksFirst && !look())
        return outcome();
    AtomicFile file(path);
    const auto locked = file.lock(patience.timeout());
    patience.note(locked);
    if (!locked)
        return locked.error();
    if (!look())
        return outcome();
    if (attempt->edited->bytes->size() > options.limit)
        return systemError(path, "write", EFBIG, options.limit);
    return replace(file, std::move(*attempt->edited));
}

} // namespace platform
