#include "cli/commands/Commands.h"

#include "cli/terminal/FileLine.h"
#include "cli/terminal/RecordJson.h"
#include "phone/FileSearch.h"

#include <QJsonArray>

namespace tessary {

void findFiles(CliSession& session) {
    const CliRequest& request = session.request();
    QJsonArray found;
    const ListingReceiver receiver{
        [&](std::vector<FileItem>&& items) {
            for (const FileItem& item : items) {
                if (request.json)
                    found.append(toJson(item));
                else
                    session.printLine(fileLine(item, item.path));
            }
            if (!request.json)
                session.flushOutput();
        },
        [&](UnreadableEntry&& entry) { session.fail("Not searched", entry.path, entry.error); }};
    searchFiles(session.files(), request.paths.front(), NamePattern(request.pattern), receiver,
                session.stop());
    if (request.json)
        session.print(found);
}

} // namespace tessary
