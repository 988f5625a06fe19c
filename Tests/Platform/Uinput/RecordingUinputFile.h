// The kernel's side of /dev/uinput on machines that have none.
#pragma once

#include "Platform/Linux/Uinput/UinputFile.h"

#include <cstdint>
#include <string>
#include <vector>

namespace platform {

// What was asked of the kernel, and what it is to answer. Outlives the file that writes it down.
struct UinputRecord
{
    struct Call
    {
        unsigned long request = 0;
        int argument = 0;

        bool operator==(const Call &) const = default;
    };
    struct Event
    {
        int type = 0;
        int code = 0;
        int value = 0;

        bool operator==(const Event &) const = default;
    };

    std::vector<Call> calls; // of ioctl(), that with the setup among them
    std::string name;
    int bus = 0;
    std::vector<std::vector<Event>> writes;
    bool isClosed = false;

    int openError = 0;
    int writeError = 0;
    // The ioctl() that fails, counted from 0, and how.
    std::size_t failingCall = SIZE_MAX;
    int callError = 0;
};

class RecordingUinputFile final : public UinputFile
{
public:
    explicit RecordingUinputFile(UinputRecord &record)
        : record_(record)
    {}
    ~RecordingUinputFile() override { record_.isClosed = true; }

    int open() override { return record_.openError; }

    int control(unsigned long request, int argument) override
    {
        record_.calls.push_back({request, argument});
        return record_.calls.size() - 1 == record_.failingCall ? record_.callError : 0;
    }

    int setUp(const uinput_setup &setup) override
    {
        record_.name = static_cast<const char *>(setup.name);
        record_.bus = setup.id.bustype;
        return control(UI_DEV_SETUP, 0);
    }

    int write(std::span<const input_event> events) override
    {
        if (record_.writeError != 0) {
            return record_.writeError;
        }
        auto &written = record_.writes.emplace_back();
        for (const auto &event : events) {
            written.push_back({event.type, event.code, event.value});
        }
        return 0;
    }

private:
    UinputRecord &record_;
};

} // namespace platform
