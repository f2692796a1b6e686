import Testing
@testable import Units

@Test func waterFreezes() {
    #expect(Temperature(celsius: 0).fahrenheit == 32)
}
