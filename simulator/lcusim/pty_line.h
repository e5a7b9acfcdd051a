// A pseudo-terminal that stands for the cable between the box and the host's serial port.
//
// It keeps a descriptor of the host's side open, so that the line does not hang up whenever a program closes
// its port, and watches who opens and closes it. Bytes that nobody reads are dropped, as on a wire.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>

namespace lcusim {

class PtyLine {
  public:
    /// `link` becomes a symbolic link to the host's side; empty: none.
    explicit PtyLine(std::filesystem::path link) : link_(std::move(link)) {}
    ~PtyLine() { close(); }
    PtyLine(const PtyLine&) = delete;
    PtyLine& operator=(const PtyLine&) = delete;

    /// Empty on success, else one sentence saying what is wrong. An old symbolic link is replaced, a file is
    /// not.
    [[nodiscard]] std::string open();
    /// Hangs up on the host and removes the link.
    void close();
    [[nodiscard]] bool isOpen() const { return master_ >= 0; }

    /// The path for the host: the link, or else the device itself.
    [[nodiscard]] std::string path() const { return link_.empty() ? device_ : link_.string(); }
    /// Speed that the host has set; 0 when it is none of a serial port's usual ones.
    [[nodiscard]] int hostSpeed() const;
    [[nodiscard]] bool hostPresent() const { return hosts_ > 0; }
    /// Somebody has opened the line since it was made, perhaps to close it at once.
    [[nodiscard]] bool hostSeen() const { return hostSeen_; }

    /// To be polled for reading: data of the host, and its coming and going.
    [[nodiscard]] int dataDescriptor() const { return master_; }
    [[nodiscard]] int watchDescriptor() const { return watch_; }
    void noticeHosts();

    /// Number of bytes read; 0 when none wait.
    [[nodiscard]] std::size_t read(std::span<std::uint8_t> into) const;
    void write(std::span<const std::uint8_t> bytes) const;

  private:
    [[nodiscard]] std::string prepare();
    [[nodiscard]] std::string makeLink() const;
    void removeLink() const;

    std::filesystem::path link_;
    std::string device_;
    int master_ = -1;
    int slave_ = -1;
    int watch_ = -1;
    int hosts_ = 0;
    bool hostSeen_ = false;
};

} // namespace lcusim
