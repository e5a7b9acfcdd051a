#include "lcu/lcu_port.h"

namespace tarvik {

namespace {

constexpr std::int32_t succeeded = 1;
constexpr std::int32_t receiveBuffer = 8192;
constexpr std::int32_t transmitBuffer = 8192;
constexpr std::int32_t dataBits = 8;
constexpr std::int32_t lineCode = 1; // of the library: no parity, and one stop bit
constexpr std::int32_t flowOff = 2;
constexpr std::int32_t yieldOn = 1;
constexpr std::int32_t receiveSide = 1;

} // namespace

std::string comName(std::int32_t port) {
    return "COM" + std::to_string(port);
}

std::int32_t LcuPort::openDevice(std::int32_t port, std::int32_t baud) {
    return serial_.ComOpen("COM", port, baud, dataBits, lineCode, lineCode, receiveBuffer, transmitBuffer);
}

bool LcuPort::open(std::int32_t port, std::int32_t baud) {
    const std::int32_t opened = openDevice(port, baud);
    const std::string speed = std::to_string(baud);
    openingCode_ = opened;
    if (opened != succeeded) {
        log_.red("Problems opening " + comName(port) + " port at " + speed + " - may be in use");
        if (const std::string problem = serial_.openProblem(); !problem.empty()) log_.red(problem);
        return false;
    }
    link_.port = port;
    link_.baud = baud;
    link_.lost = false;
    log_.black("Port " + comName(port) + " opened OK at " + speed + " baud");
    if (const std::int32_t code = serial_.ComSetFlow(port, flowOff); code != succeeded) {
        log_.black("Problem setting flow off on comms port - error " + std::to_string(code));
    }
    if (const std::int32_t code = serial_.ComSetYield(port, yieldOn); code != succeeded) {
        log_.black("Problem setting Windows yield on comms port - error " + std::to_string(code));
    }
    return true;
}

bool LcuPort::reopen() {
    serial_.ComClose(link_.port);
    if (openDevice(link_.port, link_.baud) != succeeded) return false;
    serial_.ComSetFlow(link_.port, flowOff);
    serial_.ComSetYield(link_.port, yieldOn);
    return true;
}

void LcuPort::close() {
    if (!link_.open()) return;
    serial_.ComClose(link_.port);
    log_.black("Port " + comName(link_.port) + " closed");
    link_.port = 0;
    link_.lost = false;
}

std::int32_t LcuPort::send(std::string_view text) {
    if (const std::int32_t count = waiting(); count > 0) {
        discard();
        log_.black("Buffer returned " + std::to_string(count) + " characters");
    }
    return serial_.ComPuts(link_.port, std::string(text) + '\n');
}

std::int32_t LcuPort::ask(std::string_view text, std::int32_t waitMs) {
    send(text);
    wait(waitMs);
    return waiting();
}

void LcuPort::discard() {
    serial_.Com_Flush(link_.port, receiveSide);
}

} // namespace tarvik
