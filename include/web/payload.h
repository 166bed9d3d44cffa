/// Payloads of the web calls: what a web server process and the camera service say to each other, as byte images of a
/// fixed size. Both run on one little-endian machine; nothing precedes an image.
///
/// A web call has an event, a request and a response (see web/eventGroup.h). The library creates both objects with the
/// factories registered for the event, loads the request, calls the handler once, and sends what the response dumps.
#pragma once

#include "web/layout.h"

/// A payload. The library owns the objects that the factories make and disposes of them through the destructor.
struct WEB_RPC_PAYLOAD_S {
    virtual ~WEB_RPC_PAYLOAD_S() = default;
    /// Fills the record from an image. buf holds getSize() bytes or more; len is not looked at.
    virtual void loadBytes(BU_CHAR *buf, unsigned int len) = 0;
    /// Writes the fields to their places in buf, of getSize() bytes or more. Reserved and padding bytes stay as they
    /// are.
    virtual void dumpBytes(BU_CHAR *buf, unsigned int len) = 0;
    /// Bytes of the image, whatever it holds.
    virtual unsigned int getSize() { return 0; }
};

/// A payload whose field list says all. In its image form the record is the image: a reserved head of 8 bytes, then the
/// fields at their natural alignment.
template <class T> struct WEB_RPC_LISTED_PAYLOAD : WEB_RPC_PAYLOAD_S {
    void loadBytes(BU_CHAR *buf, unsigned int) override { web_layout::load(static_cast<T &>(*this), buf); }
    void dumpBytes(BU_CHAR *buf, unsigned int) override { web_layout::dump(static_cast<const T &>(*this), buf); }
    unsigned int getSize() override { return web_layout::IMAGE_SIZE<T>; }
};

/// Makes a payload of zeros: value initialisation clears the whole record before it is constructed.
template <class T> WEB_RPC_PAYLOAD_S *fnCreatePayloadInstance() { return new T(); }

/// States that a payload travels in the image form, with so many bytes.
#define WEB_IMAGE_FORM(type, size)                                                                                     \
    static_assert(web_layout::natural<type>() && web_layout::complete<type>(8) && web_layout::selectable<type>() &&    \
                  sizeof(type) == (size))
/// States that a payload travels in the compact form, its first field at byte 0; the record has another size.
#define WEB_COMPACT_FORM(type, image, record)                                                                          \
    template <> inline constexpr BU_U32 web_layout::IMAGE_SIZE<type> = image;                                          \
    static_assert(web_layout::complete<type>(8) && web_layout::selectable<type>() && sizeof(type) == (record))
