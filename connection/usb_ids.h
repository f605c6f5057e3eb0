#pragma once

/// The maker's USB vendor ID as bus and device IDs write it: four hexadecimal digits.
constexpr char MakerVendorId[] = "5645";

/// One model's two USB product IDs, written like the vendor ID.
struct ProductPair {
    /// Of the device node above the driver's interface.
    const char* parentId;
    /// Of the device that carries the driver's interface itself.
    const char* ownId;
};

constexpr ProductPair ProductPairs[] = {
    {"0041", "0040"},
    {"0043", "0042"},
    {"0045", "0044"},
};
