// Small configurations of the bundled model made from fuzz data, for the
// plug-in's fuzz target: every value comes from a small pool, so that
// duplicates, overlaps, next hops on own addresses, OSPF assignments of
// existing interfaces and VRF changes happen often. The text is valid for
// the model by construction; what the plug-in makes of it is open.
#ifndef IPAPP_FUZZ_GENERATED_CONFIGURATION_H
#define IPAPP_FUZZ_GENERATED_CONFIGURATION_H

#include <fuzzer/FuzzedDataProvider.h>

#include <array>
#include <string>

namespace ipapp_fuzz {

// The configuration in parts, each the XML of one table or list, so that a
// candidate can keep some of the running configuration's parts.
class GeneratedConfiguration {
  public:
    static constexpr size_t kParts = 9;

    // A configuration of the data's choosing.
    explicit GeneratedConfiguration(FuzzedDataProvider& data);

    // Each part kept from base or made anew, as the data chooses.
    GeneratedConfiguration(FuzzedDataProvider& data, const GeneratedConfiguration& base);

    std::string Xml() const;

  private:
    void MakePart(FuzzedDataProvider& data, size_t part);

    std::array<std::string, kParts> parts_;
};

}  // namespace ipapp_fuzz

#endif
