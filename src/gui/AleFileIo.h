#pragma once

#include <string>

namespace koral {

struct AleDocument;
struct AleSettings;

// The RSS ALE panel's file operations on a document. Each returns an empty text on success
// and the operator's message otherwise.
namespace aleio {

// Loads an .ale file of any version; damaged values are repaired as the file is read.
// `foreign` tells whether the file has none of the sections of an ALE programme.
std::string load(AleDocument& document, const std::string& path, const AleSettings& settings,
                 bool* foreign = nullptr);
// Writes the document to `path` (the file is replaced whole; a failed write leaves the old
// file) and refreshes the file information.
std::string save(AleDocument& document, const std::string& path, const AleSettings& settings);
// The text a print-out shows: the file as saving writes it.
std::string printText(const AleDocument& document, const AleSettings& settings);

} // namespace aleio
} // namespace koral
