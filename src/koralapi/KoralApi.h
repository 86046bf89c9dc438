#pragma once

// The radio library in one include: messages, builders, the engine, the calls on it.

#include "koralapi/Builders.h"
#include "koralapi/CRadioMessage.h"
#include "koralapi/DatabaseTransfer.h"
#include "koralapi/MessageEngine.h"
#include "koralapi/Opcodes.h"
#include "koralapi/RadioCalls.h"
