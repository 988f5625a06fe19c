// Member functions as what the bus library calls back.
#pragma once

#include "Platform/Linux/Bus/BusValues.h"

namespace platform {

template <class Member> struct BusMemberOwner;
template <class Class, class Result, class... Arguments>
struct BusMemberOwner<Result (Class::*)(Arguments...)>
{
    using Type = Class;
};
template <class Class, class Result, class... Arguments>
struct BusMemberOwner<Result (Class::*)(Arguments...) const>
{
    using Type = const Class;
};

// The object of a member function, behind the pointer that went through the library.
template <auto member> [[nodiscard]] auto &busObject(void *object)
{
    return *static_cast<typename BusMemberOwner<decltype(member)>::Type *>(object);
}

// For answers and signals: int (sd_bus_message *), 0 so that others are told too.
template <auto member> int handle(sd_bus_message *message, void *object, sd_bus_error * /*error*/) noexcept
{
    return (busObject<member>(object).*member)(message);
}

// For methods: void (BusReader &arguments, BusWriter &answer). The library has compared the arguments' types.
template <auto member> int serve(sd_bus_message *call, void *object, sd_bus_error * /*error*/) noexcept
{
    sd_bus_message *created = nullptr;
    if (const int result = sd_bus_message_new_method_return(call, &created); result < 0) {
        return result;
    }
    const BusMessage reply(created);
    BusReader arguments(call);
    BusWriter answer(reply.get());
    (busObject<member>(object).*member)(arguments, answer);
    if (arguments.result() < 0 || answer.result() < 0) {
        return arguments.result() < 0 ? arguments.result() : answer.result();
    }
    return sd_bus_send(nullptr, reply.get(), nullptr);
}

// For properties: void (BusWriter &value) const.
template <auto member>
int serveProperty(sd_bus * /*bus*/, const char * /*path*/, const char * /*interface*/, const char * /*name*/,
                  sd_bus_message *reply, void *object, sd_bus_error * /*error*/) noexcept
{
    BusWriter value(reply);
    (busObject<member>(object).*member)(value);
    return value.result();
}

} // namespace platform
