#pragma once

#include "koralapi/CRadioMessage.h"
#include "koralapi/LinkLayer.h"

#include <QIODevice>
#include <QThread>

#include <atomic>
#include <map>
#include <memory>
#include <mutex>
#include <vector>

// A small stand-in for a radio that answers the library's requests from a script: fixed
// answers to queries, databases kept in radio order, the block transfers, and a few faults.
// It runs on a thread of its own, as a real radio runs on the other side of a cable.
class ScriptedRadio : public QObject
{
    Q_OBJECT
public:
    ScriptedRadio();
    ~ScriptedRadio() override;

    // The program's end of an in-process pipe to this radio.
    std::unique_ptr<QIODevice> pipeEnd();

    // Sends a message of its own (an unsolicited report), from any thread.
    void report(int opcode, std::vector<std::uint8_t> payload);
    // Raw bytes on the line, bypassing the link (noise).
    void noise(QByteArray bytes);

    // Acknowledge requests but never answer queries.
    std::atomic<bool> mute{false};

    // Databases by transfer target, in radio order; guarded by `mutex`.
    std::mutex mutex;
    std::map<int, std::vector<std::uint8_t>> databases;
    std::vector<int> requests; // opcodes received, in order

private:
    void onMessage(const QByteArray& bytes);
    void send(const koral::CRadioMessage& message);
    void answer(int opcode, std::vector<std::uint8_t> payload);
    void streamRead(int target, int start, int length);
    void onBlock(const koral::CRadioMessage& block);

    QThread m_thread;
    koral::LinkLayer* m_link = nullptr;
    std::unique_ptr<QIODevice> m_ownedDevice;
    struct Write
    {
        int target = 0;
        int start = 0;
        int length = 0;
        std::vector<std::uint8_t> bytes;
    } m_write;
};
