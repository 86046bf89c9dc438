#pragma once

#include "koralapi/InProcessPipe.h"
#include "radiosim/RadioLine.h"

#include <memory>

namespace koral::radiosim {

// The radio's end of an in-process pipe (the built-in virtual radio, and tests).
class PipeLine : public RadioLine
{
    Q_OBJECT
public:
    explicit PipeLine(std::unique_ptr<InProcessPipe::Endpoint> endpoint, QObject* parent = nullptr);

    void write(const QByteArray& bytes) override;
    void hangUp() override;
    QString description() const override { return QStringLiteral("virtual"); }

private:
    std::unique_ptr<InProcessPipe::Endpoint> m_endpoint;
};

} // namespace koral::radiosim
