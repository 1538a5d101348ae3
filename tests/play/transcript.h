#pragma once

#include <QString>

#include <stdexcept>
#include <string>

// What a session prints.
namespace play {

// Why a command could not be done; ends the command.
class Refusal : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

class Transcript
{
public:
    virtual ~Transcript() = default;

    // Each line is out when the call returns: the process may end at any moment.
    void line(const std::string& text) { put(text); }
    void refuse(const std::string& reason)
    {
        m_refused = true;
        put("! " + reason);
    }
    [[nodiscard]] bool hasRefused() const { return m_refused; }

private:
    virtual void put(const std::string& text) = 0;

    bool m_refused = false;
};

// Onto the standard output.
class PrintedTranscript : public Transcript
{
private:
    void put(const std::string& text) override;
};

// In double quotes, with \ " carriage return, line feed and tab written as \\ \" \r \n \t.
[[nodiscard]] std::string quoted(const QString& text);

} // namespace play
