// SPDX-License-Identifier: MIT
// One device of the USB device list: its six records.
#pragma once

#include <memory>
#include <string>

#include "usbdevices/Interface.h"
#include "usbdevices/configuration.h"
#include "usbdevices/descriptor.h"
#include "usbdevices/deviceInfo.h"
#include "usbdevices/product.h"
#include "usbdevices/topology.h"

/// One device of the USB device list: exactly one record of each kind, even without such a line. If
/// a device has several lines of a kind (other than 'S:' lines), the last one counts.
///
/// Copying is shallow: the copies share the six records, which are released with the last copy. A
/// device and all its copies are used by one thread at a time.
class UsbDevice {
public:
    /// Makes six empty records.
    UsbDevice();

    /// Each sets its record from one line of the device list, without its line end. Never fails.
    void setTopology(std::string line) { topology_->Initialize(std::move(line)); }
    void setDescriptor(std::string line) { descriptor_->Initialize(std::move(line)); }
    void setInterface(std::string line) { interface_->Initialize(std::move(line)); }
    void setDeviceInfo(std::string line) { deviceInfo_->Initialize(std::move(line)); }
    void setProduct(std::string line) { product_->Initialize(std::move(line)); }
    void setConfiguration(std::string line) { configuration_->Initialize(std::move(line)); }

    /// Each returns its record: never null, valid while this device or a copy of it exists.
    topology* getTopology() const { return topology_.get(); }
    descriptor* getDescriptor() const { return descriptor_.get(); }
    Interface* getInterface() const { return interface_.get(); }
    deviceInfo* getDeviceInfo() const { return deviceInfo_.get(); }
    product* getProduct() const { return product_.get(); }
    configuration* getConfiguration() const { return configuration_.get(); }

private:
    std::shared_ptr<topology> topology_;
    std::shared_ptr<descriptor> descriptor_;
    std::shared_ptr<Interface> interface_;
    std::shared_ptr<deviceInfo> deviceInfo_;
    std::shared_ptr<product> product_;
    std::shared_ptr<configuration> configuration_;
};
