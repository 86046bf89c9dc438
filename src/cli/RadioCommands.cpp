// koralctl's commands that talk to a radio: probe, read, write and bite.

#include "cli/Command.h"
#include "cli/RadioImage.h"

#include "aledb/AleFile.h"
#include "aledb/CcirFile.h"
#include "common/Texts.h"
#include "koralapi/KoralApi.h"
#include "koralapi/LinkTraceRecorder.h"
#include "radiodb/RadioDiff.h"
#include "radiodb/RssFile.h"
#include "radiosim/BuiltInRadio.h"
#include "session/BaudRate.h"
#include "session/BiteResults.h"
#include "session/ProgressCaption.h"
#include "session/RadioBackups.h"

#include <QCoreApplication>
#include <QStandardPaths>

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>
#include <ostream>
#include <unistd.h>

namespace koral::cli {

// Qt's I/O needs an application object; koralctl has none of its own. Port 1 is the built-in
// virtual radio, as in the desktop application.
void ensureApplication()
{
    static int argc = 1;
    static char name[] = "koralctl";
    static char* argv[] = {name, nullptr};
    if (!QCoreApplication::instance())
        static QCoreApplication application(argc, argv);
    if (!hasVirtualRadioFactory())
        radiosim::installBuiltInRadio();
}

namespace {

using Clock = std::chrono::steady_clock;
constexpr int kPatience = 10;
constexpr int kBarWidth = 30;
constexpr auto kBiteSilence = std::chrono::seconds(10);

// The progress of a transfer: a bar on a terminal, plain lines otherwise.
class ProgressPrinter
{
public:
    ProgressPrinter(std::ostream& err, bool reading, bool aleGlobal)
        : m_err(err), m_reading(reading), m_aleGlobal(aleGlobal),
          m_terminal(&err == &std::cerr && isatty(STDERR_FILENO))
    {}
    ~ProgressPrinter()
    {
        if (m_terminal && m_drawn)
            m_err << '\n';
    }
    void start(int position, int total)
    {
        m_position = position;
        m_total = total;
        show();
    }
    int advance(int bytes)
    {
        m_position += bytes;
        show();
        return 1;
    }

private:
    void show()
    {
        const ProgressSection section = progressSectionAt(m_position, m_aleGlobal);
        const std::string caption =
            std::string(m_reading ? text::kReadingPrefix : text::kWritingPrefix) +
            std::string(section.section);
        if (m_terminal) {
            const int filled =
                m_total > 0 ? kBarWidth * std::min(m_position, m_total) / m_total : 0;
            m_err << "\r[" << std::string(static_cast<std::size_t>(filled), '#')
                  << std::string(static_cast<std::size_t>(kBarWidth - filled), ' ') << "] "
                  << caption << "\033[K" << std::flush;
            m_drawn = true;
        } else if (caption != m_lastCaption) {
            m_err << caption << '\n';
        }
        m_lastCaption = caption;
    }

    std::ostream& m_err;
    bool m_reading;
    bool m_aleGlobal;
    bool m_terminal;
    bool m_drawn = false;
    int m_position = 0;
    int m_total = 0;
    std::string m_lastCaption;
};

class RadioConnection
{
public:
    explicit RadioConnection(const Invocation& invocation) : m_invocation(invocation) {}

    // Opens the port named by --port at --baud and starts the link; prints why not.
    bool open()
    {
        const auto port = m_invocation.option("--port");
        if (!port)
            return complain(std::string(text::kCliPortMissing));
        int baud = 9600;
        if (const auto text = m_invocation.option("--baud")) {
            const auto rate = parseBaudRate(*text);
            if (!rate)
                return complain(badBaudRateText(*text));
            baud = *rate;
        }
        std::shared_ptr<LinkTraceRecorder> trace;
        if (const auto path = m_invocation.option("--trace")) {
            trace = std::make_shared<LinkTraceRecorder>(0); // to the file only
            std::string error;
            if (!trace->writeTo(*path, &error))
                return complain(
                    text::format(text::kCliCannotWriteTrace.data(), path->c_str(), error.c_str()));
        }
        ensureApplication();
        m_engine = std::make_unique<MessageEngine>();
        if (trace)
            m_engine->setLinkTrace(trace);
        if (!m_engine->OpenPortByName(*port, baud))
            return complain(text::format(text::kCliCannotOpenPort.data(), port->c_str(),
                                         m_engine->lastError().c_str()));
        if (!m_engine->ConnectSocket(baud, 1))
            return complain(text::format(text::kCliNoAnswer.data(), port->c_str()));
        m_port = *port;
        m_baud = baud;
        return true;
    }

    ~RadioConnection()
    {
        if (m_engine) {
            m_engine->DisconnectSocket(1);
            m_engine->CloseComPort();
        }
    }

    MessageEngine* engine() { return m_engine.get(); }
    const std::string& port() const { return m_port; }
    int baud() const { return m_baud; }

    // A query whose answer carries one byte of interest.
    std::optional<int> queryByte(int (*build)(CRadioMessage*), int replyOpcode, int byteIndex)
    {
        CRadioMessage message;
        message.prepareRequest();
        build(&message);
        CRadioMessage reply;
        if (!m_engine->request(message, replyOpcode, &reply))
            return std::nullopt;
        return reply[static_cast<std::size_t>(byteIndex)];
    }

    std::optional<Capabilities> capabilities()
    {
        CRadioMessage message;
        message.prepareRequest();
        ReportCcirMode(&message);
        CRadioMessage reply;
        // A radio that does not tell its mode is taken to work with CCIR, as Read Device does.
        Capabilities caps;
        caps.ccir = !m_engine->request(message, op::CcirMode, &reply) || reply[6] == 1;
        const auto support = queryByte(ReportRadioSupportMode, op::SupportMode, 6);
        caps.globalAndExtra = support && (*support & 1);
        return caps;
    }

    bool complain(const std::string& message)
    {
        fail(m_invocation.err, message);
        return false;
    }

private:
    const Invocation& m_invocation;
    std::unique_ptr<MessageEngine> m_engine;
    std::string m_port;
    int m_baud = 0;
};

// The layout position where each database starts in the combined progress layout.
constexpr int kAlePosition = static_cast<int>(record::kDbaseSize);
constexpr int kThirdPosition = kAlePosition + static_cast<int>(record::kAleDbaseSize);

int totalBytes(const Capabilities& caps)
{
    int total = kThirdPosition;
    total += caps.ccir ? static_cast<int>(record::kCcirDbaseSize + record::kChannelNameSize)
                       : (caps.globalAndExtra ? static_cast<int>(record::kGlobalMembersSize) : 0);
    return total + (caps.globalAndExtra ? static_cast<int>(record::kExtraOptionsSize) : 0);
}

// Reads every database the radio keeps, in the order Read Device reads them.
bool readImage(RadioConnection& link, const Capabilities& caps, RadioImage& image,
               std::ostream& err)
{
    MessageEngine* engine = link.engine();
    ProgressPrinter printer(err, true, caps.globalAndExtra && !caps.ccir);
    const ProgressCallback progress = [&](int bytes) { return printer.advance(bytes); };
    printer.start(0, totalBytes(caps));
    bool ok = ReadRadioDataBase(engine, &image.radio, 0, {}, progress, kPatience) &&
              ReadAleDataBase(engine, &image.ale.database, {}, progress, kPatience);
    if (ok && !caps.ccir && caps.globalAndExtra)
        ok = ReadGlobalMemberDataBase(engine, &image.ale.globalMembers, {}, progress, kPatience);
    if (ok && caps.ccir) {
        ok = ReadCcirDataBase(engine, &image.ccir, {}, progress, kPatience) &&
             readTarget(engine, TransferTarget::ChannelName, image.channelNames, 0, {}, progress,
                        kPatience);
    }
    if (ok && caps.globalAndExtra)
        ok = ReadExtraOptionDataBase(engine, &image.ale.extraOptions, {}, progress, kPatience);
    if (ok) {
        const auto isb = link.queryByte(ReportIsbMode, op::IsbMode, 6);
        image.isb = isb && *isb == 1;
    }
    return ok;
}

CcirChannelNumbers channelNumbersOf(const RadioImage& image)
{
    return image.channelNumbers();
}

// Saves BASE.rss and BASE.ale (or the CCIR files); prints why not.
bool saveImage(const RadioImage& image, const Capabilities& caps, const std::string& base,
               std::ostream& out, std::ostream& err)
{
    FileInfo info;
    const std::string rssPath = base + ".rss";
    const CcirChannelNumbers numbers = channelNumbersOf(image);
    RssFile rss(rssPath);
    if (rss.save(info, image.radio, image.isb, caps.ccir ? &numbers : nullptr) != RssFile::kOk) {
        fail(err, text::format(text::kProfileCannotWrite.data(), rssPath.c_str(),
                               rss.errorString().c_str()));
        return false;
    }
    out << rssPath << '\n';
    if (caps.ccir) {
        const std::string ccrPath = base + ".ccr";
        CcirFile ccr(ccrPath);
        if (!ccr.save(info, image.ccir)) {
            fail(err, text::format(text::kProfileCannotWrite.data(), ccrPath.c_str(),
                                   ccr.errorString().c_str()));
            return false;
        }
        out << ccrPath << '\n';
        return true;
    }
    const std::string alePath = base + ".ale";
    AleSettings settings;
    settings.globalMembers = caps.globalAndExtra;
    std::string error;
    if (saveAleFile(alePath, image.ale, image.radio, &info, settings, &error) !=
        alefile::kSuccess) {
        fail(err, text::format(text::kProfileCannotWrite.data(), alePath.c_str(), error.c_str()));
        return false;
    }
    out << alePath << '\n';
    return true;
}

template <class Record>
std::span<const std::uint8_t> bytesOf(const Record& record)
{
    return {reinterpret_cast<const std::uint8_t*>(&record), sizeof(Record)};
}

// The first place two images differ, as the progress caption would name it.
std::optional<std::string> firstDifference(const RadioImage& wanted, const RadioImage& actual,
                                           const Capabilities& caps, bool aleWritten)
{
    struct Part
    {
        std::span<const std::uint8_t> wanted, actual;
        int position;
        bool compared;
    };
    const bool global = caps.globalAndExtra && !caps.ccir;
    const Part parts[] = {
        {bytesOf(wanted.radio), bytesOf(actual.radio), 0, true},
        {bytesOf(wanted.ale.database), bytesOf(actual.ale.database), kAlePosition, aleWritten},
        {bytesOf(wanted.ale.globalMembers), bytesOf(actual.ale.globalMembers), kThirdPosition,
         aleWritten && global},
        {bytesOf(wanted.ccir), bytesOf(actual.ccir), kThirdPosition, caps.ccir && aleWritten},
        {wanted.channelNames, actual.channelNames,
         kThirdPosition + static_cast<int>(record::kCcirDbaseSize), caps.ccir},
    };
    for (const Part& part : parts) {
        if (!part.compared)
            continue;
        const auto mismatch =
            std::mismatch(part.wanted.begin(), part.wanted.end(), part.actual.begin());
        if (mismatch.first != part.wanted.end()) {
            const int at = part.position + static_cast<int>(mismatch.first - part.wanted.begin());
            const ProgressSection section = progressSectionAt(at, global);
            return std::string(section.title) + ", " + std::string(section.section);
        }
    }
    if (aleWritten && caps.globalAndExtra &&
        std::memcmp(&wanted.ale.extraOptions, &actual.ale.extraOptions, sizeof(AleExtraOptions)) !=
            0)
        return std::string(text::kCliExtraOptions);
    return std::nullopt;
}

// Where koralctl keeps its backups: beside the application's, unless --backups names a folder.
std::filesystem::path backupFolder(const Invocation& invocation)
{
    if (const auto folder = invocation.option("--backups"))
        return *folder;
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return std::filesystem::path(data.toStdString()) / "KORAL" / "koral-control-center" / "backups";
}

// The radio's contents as they were before the write, kept among the dated backups.
bool saveBackup(const Invocation& invocation, const RadioImage& image, const Capabilities& caps)
{
    int keep = RadioBackups::kDefaultKeep;
    if (const auto text = invocation.option("--keep-backups")) {
        keep = std::atoi(text->c_str());
        if (keep < 1) {
            fail(invocation.err, text::format(text::kCliBadKeep.data(), text->c_str()));
            return false;
        }
    }
    RadioBackups backups(backupFolder(invocation), keep);
    const CcirChannelNumbers numbers = image.channelNumbers();
    RadioBackups::Contents contents{.radio = &image.radio, .isb = image.isb};
    if (caps.ccir) {
        contents.ccirNumbers = &numbers;
        contents.ccir = &image.ccir;
    } else {
        contents.ale = &image.ale;
        contents.aleSettings.globalMembers = caps.globalAndExtra;
    }
    std::string error;
    const auto saved = backups.save(contents, std::chrono::system_clock::now(), error);
    if (!saved) {
        fail(invocation.err, error);
        return false;
    }
    invocation.out << saved->string() << '\n';
    return true;
}

} // namespace

CcirChannelNumbers RadioImage::channelNumbers() const
{
    CcirChannelNumbers numbers{};
    for (std::size_t i = 0; i < numbers.size(); ++i)
        numbers[i] =
            static_cast<std::uint16_t>((channelNames[2 * i] << 8) | channelNames[2 * i + 1]);
    return numbers;
}

std::optional<Capabilities> readRadioImage(const Invocation& invocation, RadioImage& image)
{
    RadioConnection link(invocation);
    if (!link.open())
        return std::nullopt;
    const auto caps = link.capabilities();
    if (!readImage(link, *caps, image, invocation.err)) {
        fail(invocation.err, text::format(text::kCliTransferFailed.data(), link.port().c_str()));
        return std::nullopt;
    }
    return caps;
}

int runProbe(const Invocation& invocation)
{
    RadioConnection link(invocation);
    if (!link.open())
        return kExitError;
    MessageEngine* engine = link.engine();
    std::ostream& out = invocation.out;
    unsigned char word = 0;
    if (!ReadProgramWord(engine, &word))
        return fail(invocation.err, text::format(text::kCliNoAnswer.data(), link.port().c_str()));
    char version[9] = {};
    char radioVersion[9] = {};
    ReadSoftwareVersion(engine, reinterpret_cast<unsigned char*>(version));
    ReadRadioSoftwareVersion(engine, reinterpret_cast<unsigned char*>(radioVersion));
    const auto mode = link.queryByte(ReportRadioOperationMode, op::OperationMode, 6);
    const auto ale = link.queryByte(ReportAleON_OFF, op::AleOnOff, 6);
    const auto isb = link.queryByte(ReportIsbMode, op::IsbMode, 6);
    const auto caps = link.capabilities();
    const auto yesNo = [](bool on) { return on ? "on" : "off"; };
    out << text::format(text::kCliProbePort.data(), link.port().c_str(), link.baud())
        << text::format(text::kCliProbeProgramWord.data(), word)
        << text::format(text::kCliProbeVersion.data(), version)
        << text::format(text::kCliProbeRadioVersion.data(), radioVersion)
        << text::format(text::kCliProbeOperationMode.data(), mode.value_or(-1))
        << text::format(text::kCliProbeAle.data(), ale ? yesNo(*ale == 1) : "?")
        << text::format(text::kCliProbeCalling.data(), caps->ccir ? "CCIR" : "ALE")
        << text::format(text::kCliProbeSupport.data(),
                        caps->globalAndExtra ? "supported" : "not supported")
        << text::format(text::kCliProbeIsb.data(), isb ? yesNo(*isb == 1) : "?");
    return kExitOk;
}

int runRead(const Invocation& invocation)
{
    const auto base = invocation.option("-o");
    if (!base)
        return fail(invocation.err, std::string(text::kCliOutputMissing));
    // Reading takes a while; a place the files cannot go is refused before it starts.
    if (std::filesystem::path(*base).filename().empty())
        return fail(invocation.err, text::format(text::kCliNoBaseName.data(), base->c_str()));
    for (const char* extension : {".rss", ".ale", ".ccr"}) {
        const std::string path = *base + extension;
        if (const auto reason = unwritableReason(path))
            return fail(invocation.err, text::format(text::kProfileCannotWrite.data(), path.c_str(),
                                                     reason->c_str()));
    }
    RadioConnection link(invocation);
    if (!link.open())
        return kExitError;
    const auto caps = link.capabilities();
    auto image = std::make_unique<RadioImage>();
    if (!readImage(link, *caps, *image, invocation.err))
        return fail(invocation.err,
                    text::format(text::kCliTransferFailed.data(), link.port().c_str()));
    return saveImage(*image, *caps, *base, invocation.out, invocation.err) ? kExitOk : kExitError;
}

int runWrite(const Invocation& invocation)
{
    const std::string& rssPath = invocation.positional[0];
    if (fileKindOf(rssPath) != FileKind::Rss)
        return fail(invocation.err,
                    text::format(text::kCliUnknownKind.data(), rssPath.c_str(), ".rss"));
    auto wanted = std::make_unique<RadioImage>();
    RssFile rss(rssPath);
    FileInfo info;
    if (const auto reason = unreadableReason(rssPath))
        return fail(invocation.err, rssPath + ": " + *reason);
    if (rss.load(&info, &wanted->radio, &wanted->isb) != RssFile::kOk)
        return fail(invocation.err, rssPath + ": " + rss.errorString());
    CcirChannelNumbers numbers{};
    const bool hasNumbers = rss.loadCcirChannelNumbers(numbers);
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        wanted->channelNames[2 * i] = static_cast<std::uint8_t>(numbers[i] >> 8);
        wanted->channelNames[2 * i + 1] = static_cast<std::uint8_t>(numbers[i]);
    }
    const bool secondGiven = invocation.positional.size() > 1;
    const bool ccrGiven = secondGiven && fileKindOf(invocation.positional[1]) == FileKind::Ccr;
    const bool aleGiven = secondGiven && !ccrGiven;
    if (ccrGiven) {
        const std::string& second = invocation.positional[1];
        if (const auto reason = unreadableReason(second))
            return fail(invocation.err, second + ": " + *reason);
        CcirFile ccr(second);
        CcirState state;
        if (ccr.load(nullptr, wanted->ccir, state) != CcirFile::kLoaded)
            return fail(invocation.err, second + ": " + ccr.errorString());
    }
    if (aleGiven) {
        const std::string& second = invocation.positional[1];
        if (fileKindOf(second) != FileKind::Ale)
            return fail(invocation.err,
                        text::format(text::kCliUnknownKind.data(), second.c_str(), ".ale, .ccr"));
        if (const auto reason = unreadableReason(second))
            return fail(invocation.err, second + ": " + *reason);
        std::string error;
        if (loadAleFile(second, &wanted->ale, nullptr, nullptr, AleSettings{}, true, &error) !=
            alefile::kSuccess)
            return fail(invocation.err, second + ": " + error);
    }

    RadioConnection link(invocation);
    if (!link.open())
        return kExitError;
    const auto caps = link.capabilities();
    if (caps->ccir && !hasNumbers)
        return fail(invocation.err,
                    text::format(text::kCliNoChannelNumbers.data(), rssPath.c_str()));

    // What the radio holds now is kept first, so that nothing is lost if the write goes wrong.
    const std::string base = std::filesystem::path(rssPath).replace_extension().string();
    auto before = std::make_unique<RadioImage>();
    if (!readImage(link, *caps, *before, invocation.err))
        return fail(invocation.err,
                    text::format(text::kCliTransferFailed.data(), link.port().c_str()));
    if (!saveImage(*before, *caps, base + ".before-write", invocation.out, invocation.err))
        return kExitError;
    if (!saveBackup(invocation, *before, *caps))
        return kExitError;
    keepRadioParameters(wanted->radio, before->radio);
    if (!aleGiven)
        wanted->ale = before->ale;
    if (!ccrGiven)
        wanted->ccir = before->ccir;
    if (ccrGiven && !caps->ccir)
        return fail(invocation.err,
                    text::format(text::kCliNotInCcirMode.data(), invocation.positional[1].c_str()));

    MessageEngine* engine = link.engine();
    ProgressPrinter printer(invocation.err, false, caps->globalAndExtra && !caps->ccir);
    printer.start(0, totalBytes(*caps));
    const ProgressCallback progress = [&](int bytes) { return printer.advance(bytes); };
    bool ok = WriteRadioDataBase(engine, &wanted->radio, 0, {}, progress, kPatience) &&
              WriteAleDataBase(engine, &wanted->ale.database, {}, progress, kPatience, caps->ccir,
                               caps->globalAndExtra, caps->globalAndExtra);
    if (ok && caps->ccir)
        ok = WriteCcirDataBase(engine, &wanted->ccir, {}, progress, kPatience) &&
             writeTarget(engine, TransferTarget::ChannelName, wanted->channelNames, 0, {}, progress,
                         kPatience, 1);
    if (ok && !caps->ccir && caps->globalAndExtra)
        ok = WriteGlobalMemberDataBase(engine, &wanted->ale.globalMembers, {}, progress, kPatience,
                                       1);
    if (ok && caps->globalAndExtra)
        ok = WriteExtraOptionDataBase(engine, &wanted->ale.extraOptions, {}, progress, kPatience);
    if (!ok)
        return fail(invocation.err,
                    text::format(text::kCliTransferFailed.data(), link.port().c_str()));

    auto after = std::make_unique<RadioImage>();
    if (!readImage(link, *caps, *after, invocation.err))
        return fail(invocation.err,
                    text::format(text::kCliTransferFailed.data(), link.port().c_str()));
    if (const auto where = firstDifference(*wanted, *after, *caps, true))
        return fail(invocation.err, text::format(text::kCliVerifyFailed.data(), where->c_str()));
    invocation.out << text::format(text::kCliWritten.data(), link.port().c_str());
    return kExitOk;
}

int runBite(const Invocation& invocation)
{
    const std::string type = invocation.option("--type").value_or("full");
    const std::array<std::string_view, 3> types{"full", "channel", "lowrf"};
    const auto found = std::find(types.begin(), types.end(), type);
    if (found == types.end())
        return fail(invocation.err, text::format(text::kCliBadTestType.data(), type.c_str()));
    const auto testType = static_cast<BiteTestType>(found - types.begin());

    RadioConnection link(invocation);
    if (!link.open())
        return kExitError;
    MessageEngine* engine = link.engine();
    CRadioMessage request;
    request.prepareRequest();
    PerformSelfTest(&request, static_cast<int>(testType));
    if (!engine->SendRadioMessage(&request))
        return fail(invocation.err, std::string(text::byId(text::id::NoResponse)));
    invocation.err << biteTestTypeText(testType) << '\n';

    // The radio reports progress and then the results; silence for 10 s ends the wait.
    auto lastNews = Clock::now();
    CRadioMessage message;
    while (Clock::now() - lastNews < kBiteSilence) {
        if (engine->GetMessage(&message, 1) != 1 || message.GetOpcode() != op::DisplayReport)
            continue;
        if (message[6] == op::display::SelfTestProgress) {
            lastNews = Clock::now();
            const int position =
                biteProgressFromText(reinterpret_cast<const char*>(message.payload() + 1));
            if (position >= 0)
                invocation.err << position << '/' << kBiteProgressMaximum << '\n';
        } else if (message[6] == op::display::SelfTestResult) {
            const BiteSummary summary = summarizeBite(message.bytes);
            for (const BiteRow& row : summary.rows)
                invocation.out << biteItemName(row.item) << '\t' << biteResultText(row.result)
                               << '\n';
            invocation.out << biteSummaryText(summary) << '\n';
            return summary.failed == 0 && summary.unableToPerform == 0 ? kExitOk : kExitProblems;
        }
    }
    return fail(invocation.err, std::string(text::byId(text::id::NoResponse)));
}

} // namespace koral::cli
