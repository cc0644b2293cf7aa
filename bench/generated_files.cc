#include "generated_files.h"

#include <stdlib.h>

#include <filesystem>
#include <map>
#include <memory>
#include <stdexcept>

#include "device_generator.h"

namespace ipapp_bench {

using ipapp_generator::DeviceShape;
using ipapp_generator::GeneratedPair;

namespace {

class ScratchDirectory {
  public:
    ScratchDirectory() {
        char name[] = "/tmp/ipapp-bench-XXXXXX";
        if (mkdtemp(name) == nullptr) {
            throw std::runtime_error("mkdtemp failed");
        }
        path_ = name;
    }
    ~ScratchDirectory() { std::filesystem::remove_all(path_); }
    ScratchDirectory(const ScratchDirectory&) = delete;
    ScratchDirectory& operator=(const ScratchDirectory&) = delete;

    const std::string& path() const { return path_; }

  private:
    std::string path_;
};

// What write(directory) made for key, made on the first request; Family
// keeps the keys of different kinds of file apart.
template <typename Family, typename Result, typename Write>
const Result& Generated(size_t key, Write write) {
    struct Files {
        ScratchDirectory directory;
        Result result;
    };
    static std::map<size_t, std::unique_ptr<Files>> made;
    std::unique_ptr<Files>& files = made[key];
    if (!files) {
        files = std::make_unique<Files>();
        files->result = write(files->directory.path());
    }
    return files->result;
}

// The device of shape, written under key of Family.
template <typename Family>
const GeneratedDevice& DeviceOfShape(size_t key, const DeviceShape& shape) {
    return Generated<Family, GeneratedDevice>(key, [&shape](const std::string& directory) {
        GeneratedDevice device;
        device.file = directory + "/device.xml";
        device.nodes = ipapp_generator::WriteDevice(device.file, shape);
        return device;
    });
}

struct ByUnits;
struct ByScale;
struct ByLoopbacks;
struct ByL3Interfaces;
struct ByRouteUnits;
struct ByL3;

}  // namespace

const GeneratedPair& PairOf(size_t units) {
    return Generated<ByUnits, GeneratedPair>(units, [units](const std::string& directory) {
        return ipapp_generator::WriteConfigPair(directory, units);
    });
}

const GeneratedDevice& DeviceOfScale(size_t factor) {
    return DeviceOfShape<ByScale>(factor, ipapp_generator::ScaledDevice(factor));
}

const GeneratedDevice& DeviceGrowing(GrowingPart part, size_t count) {
    DeviceShape shape = ipapp_generator::ScaledDevice(1);
    switch (part) {
        case GrowingPart::loopbacks:
            shape.loopbacks = count;
            return DeviceOfShape<ByLoopbacks>(count, shape);
        case GrowingPart::l3:
            shape.l3 = count;
            return DeviceOfShape<ByL3Interfaces>(count, shape);
        case GrowingPart::static_routes:
            shape.ipv4_routes = count / 2;
            shape.ipv6_routes = count / 4;
            return DeviceOfShape<ByRouteUnits>(count, shape);
    }
    throw std::invalid_argument("unknown growing part");
}

const GeneratedDevice& DeviceOfL3(size_t l3) {
    DeviceShape shape;
    shape.l3 = l3;
    return DeviceOfShape<ByL3>(l3, shape);
}

}  // namespace ipapp_bench
