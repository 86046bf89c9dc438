#include "gui/CcirFileIo.h"

#include "aledb/CcirFile.h"
#include "common/Texts.h"
#include "gui/CcirDocument.h"
#include "profile/ProfileFile.h"

#include <filesystem>
#include <system_error>

namespace koral::ccirio {

std::string load(CcirDocument& document, const std::string& path, bool* foreign)
{
    std::error_code code;
    // A missing file would load as all defaults: opening one is the operator's mistake.
    if (!std::filesystem::is_regular_file(path, code))
        return text::format(text::kFileNotReadable.data(), path.c_str());
    CcirDocument loaded;
    CcirState state;
    const CcirFile file(path);
    if (file.load(&loaded.info, loaded.record, state) != CcirFile::kLoaded)
        return text::format(text::kProfileCannotRead.data(), path.c_str(),
                            file.errorString().c_str());
    if (foreign)
        *foreign = !ProfileFile(path).hasSection(CcirFile::kSection);
    loaded.known = true;
    document = loaded;
    return {};
}

std::string save(CcirDocument& document, const std::string& path)
{
    CcirFile file(path);
    FileInfo info = document.info;
    if (file.save(info, document.record) != 1)
        return text::format(text::kFileNotWritten.data(), path.c_str(), file.errorString().c_str());
    document.info = info;
    return {};
}

std::string printText(const CcirDocument& document)
{
    return CcirFile::content(document.info, document.record);
}

} // namespace koral::ccirio
