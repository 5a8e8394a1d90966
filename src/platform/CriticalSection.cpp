#include <ZqXmlLib9/platform/CriticalSection.h>

CZQCriticalSection::CZQCriticalSection() = default;
CZQCriticalSection::~CZQCriticalSection() = default;

void CZQCriticalSection::Enter()
{
    m_mutex.lock();
}

void CZQCriticalSection::Leave()
{
    m_mutex.unlock();
}
