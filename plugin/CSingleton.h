#pragma once

// Base of the objects that exist once per process. The instance is made on first use, by one thread however many ask,
// and never destroyed: detached scans, and windows that Qt tears down late, may still use it when the process ends.
// If the constructor throws, the next use tries again.
template<typename T>
class CSingleton
{
public:
    virtual ~CSingleton() = default;

    CSingleton(const CSingleton&) = delete;
    CSingleton& operator=(const CSingleton&) = delete;

    static T& instance()
    {
        static T* const instance = new T;
        return *instance;
    }

protected:
    CSingleton() = default;
};
