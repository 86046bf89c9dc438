#pragma once

#include <string>

namespace koral {

struct CcirDocument;

// The CCIR panel's file operations on a document. Each returns an empty text on success and
// the operator's message otherwise.
namespace ccirio {

// Loads a .ccr file; `foreign` tells whether it has no CCIR section at all.
std::string load(CcirDocument& document, const std::string& path, bool* foreign = nullptr);
// Writes the document to `path` (replaced whole; a failed write leaves the old file).
std::string save(CcirDocument& document, const std::string& path);
// The text a print-out shows: the file as saving writes it.
std::string printText(const CcirDocument& document);

} // namespace ccirio
} // namespace koral
