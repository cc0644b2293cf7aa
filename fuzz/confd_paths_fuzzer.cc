// libconfd's paths: printf-style templates with typed arguments, read
// through MAAPI and CDB on the example device, and the keypath text round
// trip.
//
// Varargs cannot be built at run time, so a call has a fixed shape: up to
// three arguments, each of a kind the data picks (a string, an int, an
// unsigned, a long long, a confd_value_t, a count and a value array), with
// the directive's flags, the text between directives and the argument
// values from the data. A refused template or path is an expected outcome.
//
// Round trip: a path the datastore takes as a keypath prints as a text that
// gives the same keypath and the same text again, and MAAPI finds the node
// through the keypath ("%h") exactly when it finds it through the text
// (when the text, as a C string, can hold it).
#include <arpa/inet.h>
#include <confd_cdb.h>
#include <confd_maapi.h>
#include <fuzzer/FuzzedDataProvider.h>
#include <ipapp_test_support/confd_fixture.h>
#include <sys/socket.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <deque>
#include <string>
#include <vector>

#include "bundled_model.h"

namespace {

constexpr int kMaxArguments = 3;
constexpr size_t kMaxPieceLength = 64;

// The example device served as running and candidate, with a MAAPI read
// transaction and a CDB session on it.
class Device {
  public:
    Device()
        : confd_(ipapp_fuzz::ExampleRunning(), ipapp_fuzz::ExampleRunning()),
          cdb_socket_(socket(PF_INET, SOCK_STREAM, 0)) {
        if (cdb_connect(cdb_socket_, CDB_READ_SOCKET, confd_.address(),
                        static_cast<int>(confd_.address_length())) != CONFD_OK ||
            cdb_start_session(cdb_socket_, CDB_RUNNING) != CONFD_OK) {
            std::abort();
        }
    }

    // Every read of the path the template and arguments make.
    template <typename... Arguments>
    void ReadPath(const std::string& format, Arguments... arguments) {
        const int s = confd_.maapi_socket();
        maapi_exists(s, confd_.thandle(), format.c_str(), arguments...);
        maapi_num_instances(s, confd_.thandle(), format.c_str(), arguments...);
        confd_value_t value{};
        if (maapi_get_elem(s, confd_.thandle(), &value, format.c_str(), arguments...) == CONFD_OK) {
            confd_free_value(&value);
        }
        cdb_exists(cdb_socket_, format.c_str(), arguments...);
    }

    void RoundTrip(const std::string& path);

  private:
    ipapp_test::ConfdFixture confd_;
    int cdb_socket_;
};

bool SameKeypath(const confd_hkeypath_t& a, const confd_hkeypath_t& b) {
    if (a.len != b.len) {
        return false;
    }
    for (int level = 0; level < a.len; ++level) {
        for (int key = 0; key < MAXKEYLEN; ++key) {
            if (confd_val_eq(&a.v[level][key], &b.v[level][key]) == 0) {
                return false;
            }
            if (a.v[level][key].type == C_NOEXISTS || a.v[level][key].type == C_XMLTAG) {
                break;
            }
        }
    }
    return true;
}

void Device::RoundTrip(const std::string& path) {
    try {
        const confdstore::Keypath keypath = confd_.datastore().keypath(path);
        const std::string text = keypath.text();
        const confdstore::Keypath again = confd_.datastore().keypath(text);
        if (again.text() != text || !SameKeypath(keypath.get(), again.get())) {
            std::abort();
        }
        // A text with a zero byte cannot pass as a C string.
        if (text.find('\0') == std::string::npos &&
            maapi_exists(confd_.maapi_socket(), confd_.thandle(), "%h", &keypath.get()) !=
                maapi_exists(confd_.maapi_socket(), confd_.thandle(), "%s", text.c_str())) {
            std::abort();
        }
    } catch (const confdstore::Error&) {
    }
}

enum class ArgumentKind : uint8_t { text, int32, uint32, int64, value, values, kMaxValue = values };

// What the arguments point to, kept until the call returns.
struct ArgumentStore {
    std::deque<std::string> texts;
    std::deque<std::vector<confd_value_t>> values;
};

// Literal text between directives: a '%' in it stays a percent sign.
std::string Piece(FuzzedDataProvider& data) {
    std::string piece;
    for (char c : data.ConsumeRandomLengthString(kMaxPieceLength)) {
        piece += c == '%' ? std::string("%%") : std::string(1, c);
    }
    return piece;
}

// A printf directive with optional flag, width and precision.
std::string Directive(FuzzedDataProvider& data, const char* flags, const char* conversion) {
    std::string directive = "%";
    const size_t flag =
        data.ConsumeIntegralInRange<size_t>(0, std::char_traits<char>::length(flags));
    if (flag > 0) {
        directive += flags[flag - 1];
    }
    if (data.ConsumeBool()) {
        directive += std::to_string(data.ConsumeIntegralInRange(0, 40));
    }
    if (data.ConsumeBool()) {
        directive += "." + std::to_string(data.ConsumeIntegralInRange(0, 40));
    }
    return directive + conversion;
}

confd_value_t MakeValue(FuzzedDataProvider& data, ArgumentStore& store) {
    confd_value_t value{};
    switch (data.ConsumeIntegralInRange(0, 4)) {
        case 0: {
            const std::string& text = store.texts.emplace_back(data.ConsumeRandomLengthString(32));
            CONFD_SET_CBUF(&value, text.data(), text.size());
            break;
        }
        case 1:
            CONFD_SET_UINT32(&value, data.ConsumeIntegral<uint32_t>());
            break;
        case 2:
            CONFD_SET_INT32(&value, data.ConsumeIntegral<int32_t>());
            break;
        case 3:
            CONFD_SET_UINT8(&value, data.ConsumeIntegral<uint8_t>());
            break;
        default: {
            in_addr address{};
            address.s_addr = data.ConsumeIntegral<uint32_t>();
            CONFD_SET_IPV4(&value, address);
            break;
        }
    }
    return value;
}

// Adds arguments of the kinds the data picks, then reads the path.
template <int Depth, typename... Arguments>
void ExpandAndRead(FuzzedDataProvider& data, Device& device, ArgumentStore& store,
                   const std::string& format, Arguments... arguments) {
    if constexpr (Depth == kMaxArguments) {
        device.ReadPath(format, arguments...);
    } else {
        if (data.remaining_bytes() == 0 || data.ConsumeBool()) {
            device.ReadPath(format, arguments...);
            return;
        }
        const std::string head = format + Piece(data);
        // A number directive, then its argument.
        const auto number = [&](const char* flags, const char* conversion, auto consume) {
            const std::string directive = head + Directive(data, flags, conversion);
            ExpandAndRead<Depth + 1>(data, device, store, directive, arguments..., consume());
        };
        switch (data.ConsumeEnum<ArgumentKind>()) {
            case ArgumentKind::text: {
                const std::string directive = head + Directive(data, "-", "s");
                const std::string& text =
                    store.texts.emplace_back(data.ConsumeRandomLengthString(32));
                ExpandAndRead<Depth + 1>(data, device, store, directive, arguments...,
                                         text.c_str());
                break;
            }
            case ArgumentKind::int32:
                number("-+ 0", "d", [&] { return data.ConsumeIntegral<int>(); });
                break;
            case ArgumentKind::uint32:
                number("-0", "u", [&] { return data.ConsumeIntegral<unsigned>(); });
                break;
            case ArgumentKind::int64:
                number("-+ 0", "lld", [&] { return data.ConsumeIntegral<long long>(); });
                break;
            case ArgumentKind::value: {
                const std::vector<confd_value_t>& value =
                    store.values.emplace_back(1, MakeValue(data, store));
                ExpandAndRead<Depth + 1>(data, device, store, head + "%x", arguments...,
                                         value.data());
                break;
            }
            case ArgumentKind::values: {
                // The count may lie outside 0..MAXKEYLEN; the array holds what
                // a valid count reads, so a read beyond it is a finding.
                const int count = data.ConsumeIntegralInRange(-1, MAXKEYLEN + 1);
                std::vector<confd_value_t>& values = store.values.emplace_back();
                for (int i = 0; i < count && i < MAXKEYLEN; ++i) {
                    values.push_back(MakeValue(data, store));
                }
                ExpandAndRead<Depth + 1>(data, device, store, head + "%*x", arguments..., count,
                                         values.empty() ? nullptr : values.data());
                break;
            }
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
    static Device device;
    FuzzedDataProvider data(bytes, size);
    device.RoundTrip(data.ConsumeRandomLengthString(256));
    ArgumentStore store;
    ExpandAndRead<0>(data, device, store, std::string());
    return 0;
}
