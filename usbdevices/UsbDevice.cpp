// SPDX-License-Identifier: MIT
#include "usbdevices/UsbDevice.h"

UsbDevice::UsbDevice()
    : topology_(std::make_shared<topology>()),
      descriptor_(std::make_shared<descriptor>()),
      interface_(std::make_shared<Interface>()),
      deviceInfo_(std::make_shared<deviceInfo>()),
      product_(std::make_shared<product>()),
      configuration_(std::make_shared<configuration>()) {}
