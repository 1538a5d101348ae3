#pragma once

// What the host tells of its keyboard.
namespace platform {

// Whether AltGr arrives as Control and Alt held together; otherwise it is a modifier of its own.
#ifdef _WIN32
inline constexpr bool altGrIsControlAlt = true;
#else
inline constexpr bool altGrIsControlAlt = false;
#endif

} // namespace platform
