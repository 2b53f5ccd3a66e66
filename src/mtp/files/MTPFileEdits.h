#pragma once

#include "mtp/objects/MTPTree.h"
#include "phone/records/FileItem.h"

#include <functional>

namespace tessary {

/// What is done to files and folders that are there, in one session. What is listed is looked at
/// again right before. Errors are those of MTPTree.
class MTPFileEdits {
public:
    /// `edited` is called as soon as the phone has done something.
    MTPFileEdits(MTPTree& tree, std::stop_token stop, std::function<void()> edited)
        : tree_(tree), stop_(std::move(stop)), edited_(std::move(edited)) {}

    /// A file or an empty folder; PhoneError::folderNotEmpty.
    void remove(const FileItem& item);
    /// With all in it, in one step. False when the phone does not do that for a folder.
    [[nodiscard]] bool removeTree(const FileItem& item);
    [[nodiscard]] FileItem rename(const FileItem& item, const QString& newName);
    /// Within a storage. PhoneError::notSupported when the phone cannot move.
    [[nodiscard]] FileItem move(const FileItem& item, const QString& newFolder);

private:
    [[nodiscard]] MTPFound findOne(const FileItem& item);

    MTPTree& tree_;
    const std::stop_token stop_;
    const std::function<void()> edited_;
};

} // namespace tessary
