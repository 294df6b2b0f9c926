#pragma once

#include "editor/engine/geometry.h"

#include <string_view>

namespace velmora {

/// Reference-counted base of bitmaps and fonts. Starts with one reference.
class QORResource {
public:
    virtual ~QORResource() = default;
    virtual void remember() = 0;
    /// Destroys itself with the last reference.
    virtual void forget() = 0;
};

/// Pixel by pixel through a bitmap, row by row.
class QORBitmapPixelAcces {
public:
    virtual ~QORBitmapPixelAcces() = default;
    virtual void remember() = 0;
    virtual void forget() = 0;
    /// @return false, place unchanged, if it lies outside.
    virtual bool setPosition(int x, int y) = 0;
    /// To the next pixel, at a row's end to the next row. @return false at the end.
    virtual bool advance() = 0;
    /// @return false at the start.
    virtual bool retreat() = 0;
    virtual int getX() const = 0;
    virtual int getY() const = 0;
    virtual void getColor(Rgba& colour) const = 0;
    virtual void setColor(Rgba colour) = 0;
};

class QORBitmap : public QORResource {
public:
    /// Pixels; 0 without an image.
    virtual int getWidth() = 0;
    virtual int getHeight() = 0;
    /// @return an object with one reference, or null without an image.
    virtual QORBitmapPixelAcces* getPixelAccess() = 0;
};

class QORFont : public QORResource {
public:
    virtual std::string_view getName() const = 0;
    /// Points, one of which is a pixel at 100 %.
    virtual double getSize() const = 0;
};

/// Holds one reference of a resource.
template <typename Resource>
class ResourceRef {
public:
    ResourceRef() = default;
    /// Takes a reference of its own.
    explicit ResourceRef(Resource* shared) : resource(shared)
    {
        if (resource != nullptr) resource->remember();
    }
    ResourceRef(const ResourceRef& other) : ResourceRef(other.resource) {}
    ResourceRef(ResourceRef&& other) noexcept : resource(other.resource) { other.resource = nullptr; }
    ResourceRef& operator=(ResourceRef other) noexcept
    {
        Resource* const old = resource;
        resource = other.resource;
        other.resource = old;
        return *this;
    }
    ~ResourceRef()
    {
        if (resource != nullptr) resource->forget();
    }
    /// Takes over the reference that the caller holds, as of a new object.
    static ResourceRef adopt(Resource* owned)
    {
        ResourceRef ref;
        ref.resource = owned;
        return ref;
    }

    Resource* get() const { return resource; }
    Resource* operator->() const { return resource; }
    explicit operator bool() const { return resource != nullptr; }

private:
    Resource* resource = nullptr;
};

} // namespace velmora
