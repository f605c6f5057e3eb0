#pragma once

#include <string>
#include <string_view>

/// One command or query of a message.
struct MessageUnit {
    std::string_view header; ///< as it stands, without "?"
    bool isQuery = false;
    std::string_view parameters;
};

/// Whether the message has only the characters that SCPI allows (no control characters but tabs
/// and carriage returns, nothing above 126).
bool isPlainText(std::string_view message);

/// The part before the next ";" outside quotes; the message keeps what follows.
std::string_view takeMessageUnit(std::string_view& message);

MessageUnit splitUnit(std::string_view unit);

/// The whole header in upper case, by the path rule: a header continues at the level of the one
/// before it, a leading ":" begins at the root, and common commands (*) leave the path alone.
/// The path, empty at the start of a message, is brought up to date.
std::string resolveHeader(std::string_view header, std::string& path);
