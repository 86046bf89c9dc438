// koralctl csv: a radio database's channel plan to and from a CSV file.

#include "cli/Command.h"
#include "cli/RadioDocument.h"

#include "common/Texts.h"
#include "radiodb/ChannelCsv.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <iterator>
#include <ostream>
#include <sstream>

namespace koral::cli {

namespace {

int exportCsv(const std::string& rssPath, const std::string& csvPath, std::ostream& err)
{
    const auto document = loadRadioDocument(rssPath, err);
    if (!document)
        return kExitError;
    if (const auto reason = unwritableReason(csvPath))
        return fail(
            err, text::format(text::kProfileCannotWrite.data(), csvPath.c_str(), reason->c_str()));
    const std::string csv = channelCsv({document->record, document->ccirNumbers});
    std::ofstream out(csvPath, std::ios::binary | std::ios::trunc);
    out << csv;
    out.close();
    if (!out)
        return fail(err, text::format(text::kProfileCannotWrite.data(), csvPath.c_str(),
                                      std::strerror(errno != 0 ? errno : EIO)));
    return kExitOk;
}

int importCsv(const std::string& csvPath, const std::string& rssPath, std::ostream& err)
{
    if (const auto reason = unreadableReason(csvPath))
        return fail(
            err, text::format(text::kProfileCannotRead.data(), csvPath.c_str(), reason->c_str()));
    auto document = loadRadioDocument(rssPath, err);
    if (!document)
        return kExitError;
    std::ifstream in(csvPath, std::ios::binary);
    const std::string csv{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    ChannelPlan plan{document->record, document->ccirNumbers};
    const std::vector<std::string> errors = importChannelCsv(csv, plan, document->isb);
    for (const std::string& error : errors)
        err << csvPath << ": " << error << '\n';
    if (!errors.empty())
        return kExitProblems;
    document->record = plan.record;
    document->ccirNumbers = plan.ccirNumbers;
    return saveRadioDocument(*document, rssPath, err) ? kExitOk : kExitError;
}

} // namespace

int runCsv(const Invocation& invocation)
{
    const std::string& verb = invocation.positional[0];
    if (verb == "export")
        return exportCsv(invocation.positional[1], invocation.positional[2], invocation.err);
    if (verb == "import")
        return importCsv(invocation.positional[1], invocation.positional[2], invocation.err);
    return fail(invocation.err, text::format(text::kCliWrongArguments.data(), "csv",
                                             "export RADIO.rss OUT.csv | import IN.csv RADIO.rss"));
}

} // namespace koral::cli
