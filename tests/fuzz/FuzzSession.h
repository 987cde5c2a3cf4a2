// What the fuzz targets share: the platform's session, made once for the process, since the
// readers reach the host (messages, the working database) through it.
#pragma once
#include <iostream>
#include <memory>

#include "sim/core/Session.h"

namespace fuzz {

inline void session()
{
    static std::unique_ptr<sim::Session> one;
    if (!sim::Session::currentOrNull())
        one = std::make_unique<sim::Session>(std::make_unique<sim::ScriptInput>(""), nullptr);
}

} // namespace fuzz
