#pragma once

#include "browser/model/FileBrowserViewModel.h"

namespace tessary {

/// Copies entries of a browser into a local folder, without a question: what is there is kept.
inline void downloadNow(FileBrowserViewModel& browser, const QStringList& ids,
                        const QString& localFolder) {
    browser.copies().prepareDownload(ids, localFolder, [&browser](const PreparedCopy& copy) {
        browser.copies().start(copy, {});
    });
}

/// Copies local files and folders to the phone: what is there is replaced.
inline void uploadNow(FileBrowserViewModel& browser, const QStringList& localPaths,
                      const QString& folder = {}) {
    browser.copies().prepareUpload(localPaths, folder, [&browser](const PreparedCopy& copy) {
        CopyAnswers answers;
        for (const PreparedCopy::Part& part : copy.parts)
            for (const CheckedItem& item : part.check.items)
                answers.insert(item.item.item.id(), ClashAnswer::replace);
        browser.copies().start(copy, answers);
    });
}

} // namespace tessary
