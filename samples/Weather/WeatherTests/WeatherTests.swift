import Testing
import Units

struct WeatherTests {
    @Test func rainMakesAnHourWet() async throws {
        let day = try await PreviewSource().nextDay()
        #expect(day.filter(\.isWet).count == 4)
    }

    @Test func hoursAreInOrder() async throws {
        let day = try await PreviewSource().nextDay()
        #expect(day == day.sorted { $0.hour < $1.hour })
    }
}
