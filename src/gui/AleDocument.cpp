#include "gui/AleDocument.h"

#include <cstring>

namespace koral {

namespace {

// The records are bytes without padding: comparing them whole is exact.
bool sameBytes(const auto& a, const auto& b)
{
    return std::memcmp(&a, &b, sizeof a) == 0;
}

} // namespace

bool AleDocument::isModified() const
{
    return !sameBytes(programme.database, m_clean.database) ||
           !sameBytes(programme.globalMembers, m_clean.globalMembers) ||
           !sameBytes(programme.extraOptions, m_clean.extraOptions) ||
           info.comment != m_cleanComment || info.userName != m_cleanUserName;
}

void AleDocument::markClean()
{
    m_clean = programme;
    m_cleanComment = info.comment;
    m_cleanUserName = info.userName;
}

} // namespace koral
